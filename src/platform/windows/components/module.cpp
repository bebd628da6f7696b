#include "platform/windows/components/module.hpp"

namespace kestra {
namespace {

constexpr DWORD kLongestPath = 32768;

using EntryPoint = HRESULT(STDAPICALLTYPE*)();

HMODULE OwnModule() {
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

}  // namespace

std::wstring ModulePath() {
  for (DWORD size = MAX_PATH; size <= kLongestPath; size *= 2) {
    std::wstring path(size, L'\0');
    const DWORD length = GetModuleFileNameW(OwnModule(), path.data(), size);
    // A path that just fills the buffer was cut.
    if (length < size) return path.substr(0, length);
  }
  return {};
}

LoadedLibrary::LoadedLibrary(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {}

LoadedLibrary::~LoadedLibrary() {
  if (module_ != nullptr) FreeLibrary(module_);
}

HRESULT LoadedLibrary::Call(const char* entry) const {
  if (module_ == nullptr) return E_NOINTERFACE;
  const auto address = reinterpret_cast<void*>(GetProcAddress(module_, entry));
  return address == nullptr ? E_NOINTERFACE : reinterpret_cast<EntryPoint>(address)();
}

}  // namespace kestra
