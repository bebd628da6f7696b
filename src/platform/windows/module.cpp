#include "platform/windows/module.hpp"

namespace kestra {

HMODULE OwnModule() {
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  ::GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

std::wstring PathOf(HMODULE module) {
  constexpr DWORD kLongestPath = 32768;
  for (DWORD size = MAX_PATH; size <= kLongestPath; size *= 2) {
    std::wstring path(size, L'\0');
    const DWORD length = ::GetModuleFileNameW(module, path.data(), size);
    // A path that just fills the buffer was cut.
    if (length < size) return path.substr(0, length);
  }
  return {};
}

std::wstring ModulePath() {
  return PathOf(OwnModule());
}

}  // namespace kestra
