#include "platform/windows/dialogs/desktop.hpp"

#include <windows.h>

namespace kestra {

bool DesktopIsSeen() {
  USEROBJECTFLAGS flags{};
  const bool told = ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags,
                                                sizeof flags, nullptr) != 0;
  return !told || (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace kestra
