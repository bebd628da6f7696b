#include "contract/shared/device_line.hpp"

#include <termios.h>

#include <limits>

#include "contract/posix/pty_line.hpp"
#include "platform/posix/serial_port.hpp"

namespace kestra {

const WaitLimits kWaitLimits{std::numeric_limits<int>::max(), 15.0};

std::vector<Twin<SerialLine>> OwnTwins() {
  return {};
}

std::unique_ptr<DeviceLine> MakeDeviceLine() {
  return std::make_unique<PtyLine>();
}

std::unique_ptr<SerialPort> MakeImpatientPort(const std::string& device) {
  return std::make_unique<PosixPort>(device, 9600, PortPatience{.look = 5, .stall = 50});
}

std::int32_t SpeedOf(const DeviceLine& line) {
  termios now = {};
  ::tcgetattr(dynamic_cast<const PtyLine&>(line).Near(), &now);
  return ::cfgetospeed(&now) == B57600 ? 57600 : -1;
}

std::vector<std::pair<std::string, std::string>> NoDevices() {
  return {
      {"/dev/no-hay-tal", "No existe el dispositivo /dev/no-hay-tal"},
      {"archivo/dentro", "No existe el dispositivo archivo/dentro"},
      {"archivo", "archivo no es un puerto serie"},
      {"/dev/null", "/dev/null no es un puerto serie"},
      {".", ". no es un puerto serie"},
  };
}

}  // namespace kestra
