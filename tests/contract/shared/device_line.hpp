#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "contract/shared/serial_line.hpp"

namespace kestra {

// A line at a serial device of this system.
class DeviceLine : public SerialLine {
 public:
  [[nodiscard]] virtual const std::string& Device() const = 0;
};

std::unique_ptr<DeviceLine> MakeDeviceLine();

// A port that gives a line up soon which takes nothing.
std::unique_ptr<SerialPort> MakeImpatientPort(const std::string& device);

// The speed that the device stands at.
std::int32_t SpeedOf(const DeviceLine& line);

// What 300 ms of waiting may cost at the most.
struct WaitLimits {
  int looks;
  double processor;  // milliseconds
};
extern const WaitLimits kWaitLimits;

// Names that are no serial device here, and the words that say so.
std::vector<std::pair<std::string, std::string>> NoDevices();

}  // namespace kestra
