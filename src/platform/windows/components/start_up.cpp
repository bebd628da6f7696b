#include "platform/windows/components/start_up.hpp"

#include <objbase.h>

#include <kestra_h.h>

#include "base/failure.hpp"
#include "platform/windows/components/com.hpp"
#include "platform/windows/components/public_classes.hpp"
#include "platform/windows/components/registration.hpp"
#include "platform/windows/module.hpp"

namespace kestra {
namespace {

using EntryPoint = HRESULT(STDAPICALLTYPE*)();

// A reference to a loaded library file.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;
  ~LoadedLibrary() {
    if (module_ != nullptr) FreeLibrary(module_);
  }

  // Calls an entry point without arguments. E_NOINTERFACE when the file or the entry is missing.
  [[nodiscard]] HRESULT Call(const char* entry) const {
    if (module_ == nullptr) return E_NOINTERFACE;
    const auto address = reinterpret_cast<void*>(GetProcAddress(module_, entry));
    return address == nullptr ? E_NOINTERFACE : reinterpret_cast<EntryPoint>(address)();
  }

 private:
  HMODULE module_;
};

Failure CannotCreate() {
  return {429, "ActiveX component can't create object"};
}

// The hosts' programs know the file as Kestra.DLL. It is asked for by the full path of the file that runs
// already, so that nothing of that name in the current directory or in the path is loaded instead.
HRESULT CallOwnEntry(const char* entry) {
  return LoadedLibrary(ModulePath()).Call(entry);
}

HRESULT CreateInitObject(ComPtr<IInitClass>& object) {
  CLSID id{};
  const HRESULT found = CLSIDFromProgID(L"Kestra.InitClass", &id);
  if (FAILED(found)) return found;
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IInitClass),
                          object.ReceiveAny());
}

HRESULT CreateAndCall() {
  ComPtr<IInitClass> object;
  HRESULT result = CreateInitObject(object);
  // Systems that look for the machine's classes alone know nothing of those of a user without rights.
  if (FAILED(result)) result = CreateUsersInitObject(object.ReceiveAny());
  return FAILED(result) ? result : object->InitVBCall();
}

}  // namespace

bool ThreadApartment::Enter() {
  if (mark_.IsSet()) return false;
  const HRESULT result = CoInitialize(nullptr);
  // The host runs this thread without an apartment of its own: that serves as well.
  if (result == RPC_E_CHANGED_MODE) return false;
  if (FAILED(result)) throw CannotCreate();
  mark_.Set(true);
  return true;
}

void ThreadApartment::Leave() {
  if (mark_.IsSet()) CoUninitialize();
  mark_.Set(false);
}

void ComponentStartUp::Begin() {
  Undo();
  const bool entered = apartment_.Enter();
  try {
    const RegistrationLock lock;
    if (IsRegistered(ModulePath())) {
      temporary_ = false;
    } else {
      Register();
    }
    CreateInitObject();
  } catch (...) {
    Undo();
    if (entered) apartment_.Leave();
    throw;
  }
}

void ComponentStartUp::End() {
  if (!Undo()) throw Failure(70, "Permission denied");
}

void ComponentStartUp::ShutDown() {
  Undo();
  apartment_.Leave();
}

bool ComponentStartUp::Undo() {
  if (!temporary_) return true;
  const RegistrationLock lock;
  temporary_ = FAILED(CallOwnEntry("DllUnregisterServer"));
  lasting_.Restore();
  return !temporary_;
}

void ComponentStartUp::Register() {
  // What an earlier start could not take back is not what was there before it.
  if (!temporary_) lasting_ = LastingRegistrations::Read();
  temporary_ = true;
  if (SUCCEEDED(CallOwnEntry("DllRegisterServer"))) MarkTemporary(ModulePath());
}

void ComponentStartUp::CreateInitObject() {
  if (SUCCEEDED(CreateAndCall())) return;
  // Programs run by an administrator do not see classes that were registered for the user alone.
  if (!temporary_) {
    Register();
    if (SUCCEEDED(CreateAndCall())) return;
  }
  throw CannotCreate();
}

}  // namespace kestra
