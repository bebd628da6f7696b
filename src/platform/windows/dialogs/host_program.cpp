#include "platform/windows/dialogs/host_program.hpp"

#include <windows.h>

#include "platform/windows/module.hpp"

namespace kestra {

std::wstring HostName() {
  const std::wstring path = PathOf(nullptr);
  const std::wstring file = path.substr(path.find_last_of(L"\\/") + 1);
  return file.substr(0, file.rfind(L'.'));
}

HINSTANCE OwnInstance() {
  return OwnModule();
}

bool DesktopIsSeen() {
  USEROBJECTFLAGS flags{};
  const bool told = ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags,
                                                sizeof flags, nullptr) != 0;
  return !told || (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace kestra
