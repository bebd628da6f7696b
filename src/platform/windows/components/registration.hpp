#pragma once

#include <windows.h>
#include <string>

#include "platform/windows/components/foreign_names.hpp"
#include "platform/windows/components/registry.hpp"

namespace kestra {

// Registers the classes as living in the file `module`: for the machine, or, where this user may not write
// there, for the user alone.
HRESULT RegisterModule(const std::wstring& module, Classes classes);

// Removes what RegisterModule wrote for the file `module`, from machine and user. A registration that
// names another file is not touched, nor is a name that leads to another class: it is somebody else's.
// Removing twice is fine.
HRESULT UnregisterModule(const std::wstring& module, Classes classes);

// What follows is about the public classes, which start-up registers for its own time.

// True when programs that look the classes up are led to the file `module`, by a registration that is
// complete and meant to stay.
bool IsRegistered(const std::wstring& module);

// True when the hive's registration, lasting or not, names the file `module`.
bool NamesFile(const Hive& hive, const std::wstring& module);

// Says of the registration that names `module` that it lasts for a start-up only. Another registering
// takes the mark away.
void MarkTemporary(const std::wstring& module);

// What is registered for good, kept over a temporary registration that overwrites it: the library's other
// copies, and names that lead to somebody else's classes.
class LastingRegistrations {
 public:
  // As they are now.
  static LastingRegistrations Read();

  // Puts back what has been overwritten or removed since.
  void Restore() const;

 private:
  struct Kept {
    std::wstring file;
    ForeignNames names;
  };

  static Kept ReadFrom(const Hive& hive);
  static void RestoreTo(const Hive& hive, const Kept& kept);

  Kept machine_;
  Kept user_;
};

// Keeps two programs that start at the same moment from registering over each other. Best effort: a
// program that cannot have the lock goes on without it.
class RegistrationLock {
 public:
  RegistrationLock();
  RegistrationLock(const RegistrationLock&) = delete;
  RegistrationLock& operator=(const RegistrationLock&) = delete;
  ~RegistrationLock();

 private:
  HANDLE mutex_;
  bool held_ = false;
};

}  // namespace kestra
