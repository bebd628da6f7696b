#pragma once

#include <windows.h>
#include <string>

namespace kestra {

// Name of the host's program: its file without folder and extension. The title of every box that has
// none of its own.
std::wstring HostName();

// The module that this code and its resources are in.
HINSTANCE OwnInstance();

// Is there somebody who could see a window of this process? A service's windows are on a desktop that
// no screen shows, and would wait there for ever.
bool DesktopIsSeen();

}  // namespace kestra
