#pragma once

namespace kestra {

// Is there somebody who could see a window of this process? A service's windows are on a desktop that
// no screen shows, and would wait there for ever.
bool DesktopIsSeen();

}  // namespace kestra
