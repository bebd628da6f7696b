#include "host.hpp"

#include <ole2.h>

#include <cstdio>

std::wstring library_path;

namespace {

HMODULE Library() {
  static const HMODULE module = LoadLibraryW(library_path.c_str());
  if (module == nullptr) {
    std::printf("the library cannot be loaded: error %lu\n", GetLastError());
    ExitProcess(99);
  }
  return module;
}

}  // namespace

void* Address(const char* name) {
  auto* const address = reinterpret_cast<void*>(GetProcAddress(Library(), name));
  if (address == nullptr) {
    std::printf("no entry %s\n", name);
    ExitProcess(99);
  }
  return address;
}

std::int32_t Call(const char* name) {
  return Entry<std::int32_t(WINAPI*)()>(name)();
}

bool CanUnload() {
  return Call("DllCanUnloadNow") == S_OK;
}

Apartment Here() {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (result == RPC_E_CHANGED_MODE) return Apartment::kMulti;
  CoUninitialize();
  return result == S_FALSE ? Apartment::kSingle : Apartment::kNone;
}
