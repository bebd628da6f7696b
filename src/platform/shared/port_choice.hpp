#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/seam/serial_port.hpp"

namespace kestra {

// A closed port as the settings tell: the device that they name, on this machine or behind a network,
// else the serial port of their number. Throws Failure for a number or a speed that is none, and for a
// network address that cannot be one.
std::unique_ptr<SerialPort> MakePort(const PortSettings& settings);

// The platform's own: a closed port on a device of this machine, and its name of the serial port with
// that number, from 1.
std::unique_ptr<SerialPort> MakeDevicePort(const std::string& device,
                                           std::optional<std::int32_t> speed);
std::string DeviceOfNumber(std::int32_t number);

}  // namespace kestra
