#pragma once

#include <windows.h>

#include "platform/windows/components/registration.hpp"

namespace kestra {

// A mark that each thread has for itself, and that goes with it: the number of a thread that has ended is
// soon another's.
class ThreadMark {
 public:
  ThreadMark() : slot_(TlsAlloc()) {}
  ThreadMark(const ThreadMark&) = delete;
  ThreadMark& operator=(const ThreadMark&) = delete;
  ~ThreadMark() { TlsFree(slot_); }

  [[nodiscard]] bool IsSet() const { return TlsGetValue(slot_) != nullptr; }
  void Set(bool set) { TlsSetValue(slot_, set ? this : nullptr); }

 private:
  DWORD slot_;
};

// The calling thread's use of the component system, from start-up to shut-down: entered once however often
// start-up runs, and left once however often shut-down does.
class ThreadApartment {
 public:
  // True when the thread was not in already. A host that chose another kind of apartment keeps its own.
  bool Enter();

  // The calling thread's own use: another's cannot be ended from here.
  void Leave();

 private:
  // No destructor: at the end of the process it would run while the loader is locked, where the component
  // system must not be called.
  ThreadMark mark_;
};

// What the component system has to do with starting and ending the library: registers the public classes
// for the time of start-up, and creates and calls InitClass once.
class ComponentStartUp {
 public:
  // Throws Failure, with everything undone, when InitClass cannot be created. Registering may fail: where
  // another copy is registered for good, that one serves.
  //
  // Classes that are registered for good with this very file are left as they are, by End too. A lasting
  // registration of another copy of the library is put back by End.
  void Begin();

  // Takes the registration of Begin back. May be called without it. Throws Failure when it stays behind;
  // the next call tries again.
  void End();

  // Leaves the thread as Begin found it. May be called without it, and again.
  void ShutDown();

 private:
  bool Undo();
  void Register();
  void CreateInitObject();

  ThreadApartment apartment_;
  LastingRegistrations lasting_;
  bool temporary_ = false;
};

}  // namespace kestra
