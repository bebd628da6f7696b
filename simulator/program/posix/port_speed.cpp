// Apart from all that includes the C library's terminals: these are the system's own, whose speeds
// are numbers.
#include "program/posix/port_speed.hpp"

#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace impresora {

int PortSpeed(int terminal) {
  termios2 mode{};
  if (ioctl(terminal, TCGETS2, &mode) != 0) return 0;
  return static_cast<int>(mode.c_ospeed);
}

void SetPortSpeed(int terminal, int baud) {
  termios2 mode{};
  if (ioctl(terminal, TCGETS2, &mode) != 0) return;
  mode.c_cflag = (mode.c_cflag & ~static_cast<tcflag_t>(CBAUD)) | BOTHER;
  mode.c_ospeed = mode.c_ispeed = static_cast<speed_t>(baud);
  ioctl(terminal, TCSETS2, &mode);
}

}  // namespace impresora
