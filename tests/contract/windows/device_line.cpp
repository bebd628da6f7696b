#include "contract/shared/device_line.hpp"

#include <filesystem>

#include "contract/windows/com_line.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/serial_port.hpp"

namespace kestra {

const WaitLimits kWaitLimits{30, 30.0};

std::unique_ptr<DeviceLine> MakeDeviceLine() {
  return std::make_unique<ComLine>();
}

std::unique_ptr<SerialPort> MakeImpatientPort(const std::string& device) {
  return std::make_unique<WindowsPort>(device, 9600, PortPatience{.look = 5, .stall = 50});
}

std::int32_t SpeedOf(const DeviceLine& line) {
  const Handle device(::CreateFileA(DevicePath(line.Device()).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  DCB now = {};
  now.DCBlength = sizeof now;
  return ::GetCommState(device.Get(), &now) ? static_cast<std::int32_t>(now.BaudRate) : -1;
}

std::vector<std::pair<std::string, std::string>> NoDevices() {
  const std::string file = (std::filesystem::current_path() / "archivo").string();
  return {
      {"COM255", "No existe el dispositivo COM255"},
      {"no-hay-tal", "No existe el dispositivo no-hay-tal"},
      {file, file + " no es un puerto serie"},
  };
}

}  // namespace kestra
