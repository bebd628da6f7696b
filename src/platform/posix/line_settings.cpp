#include "platform/posix/line_settings.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/shared/line_speed.hpp"

namespace kestra {
namespace {

// The system's names of the speeds, in the order of kLineSpeeds.
constexpr std::array<speed_t, kLineSpeeds.size()> kSystemSpeeds = {
    B50,      B75,      B110,     B134,     B150,     B200,    B300,     B600,
    B1200,    B1800,    B2400,    B4800,    B9600,    B19200,  B38400,   B57600,
    B115200,  B230400,  B460800,  B500000,  B576000,  B921600, B1000000, B1152000,
    B1500000, B2000000, B2500000, B3000000, B3500000, B4000000};

speed_t SystemSpeed(std::int32_t speed) {
  const auto* const found = std::lower_bound(kLineSpeeds.begin(), kLineSpeeds.end(), speed);
  return kSystemSpeeds[static_cast<std::size_t>(found - kLineSpeeds.begin())];
}

}  // namespace

termios RawLine(const termios& now, std::optional<std::int32_t> speed) {
  constexpr tcflag_t kFrame = CSIZE | PARENB | CSTOPB | CRTSCTS;
  termios line = now;
  line.c_iflag = IGNBRK;  // switching the printer on is no byte
  line.c_oflag = 0;
  line.c_lflag = 0;
  line.c_cflag = (now.c_cflag & ~kFrame) | CS8 | CREAD | CLOCAL;
  line.c_cc[VMIN] = 1;  // with 0, a line without news could not be told from a lost one
  line.c_cc[VTIME] = 0;
  if (speed) {
    cfsetispeed(&line, SystemSpeed(*speed));
    cfsetospeed(&line, SystemSpeed(*speed));
  }
  return line;
}

bool SameLine(const termios& a, const termios& b) {
  return a.c_iflag == b.c_iflag && a.c_oflag == b.c_oflag && a.c_lflag == b.c_lflag &&
         a.c_cflag == b.c_cflag && a.c_cc[VMIN] == b.c_cc[VMIN] && a.c_cc[VTIME] == b.c_cc[VTIME] &&
         cfgetispeed(&a) == cfgetispeed(&b) && cfgetospeed(&a) == cfgetospeed(&b);
}

}  // namespace kestra
