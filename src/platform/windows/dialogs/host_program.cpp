#include "platform/windows/dialogs/host_program.hpp"

namespace kestra {
namespace {

std::wstring HostPath() {
  constexpr DWORD kLongestPath = 32768;
  for (DWORD size = MAX_PATH; size <= kLongestPath; size *= 2) {
    std::wstring path(size, L'\0');
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), size);
    // A path that just fills the buffer was cut.
    if (length < size) return path.substr(0, length);
  }
  return {};
}

}  // namespace

std::wstring HostName() {
  const std::wstring path = HostPath();
  const std::wstring file = path.substr(path.find_last_of(L"\\/") + 1);
  return file.substr(0, file.rfind(L'.'));
}

HINSTANCE OwnInstance() {
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  ::GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&OwnInstance), &module);
  return module;
}

}  // namespace kestra
