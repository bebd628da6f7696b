#pragma once

#include <memory>

#include "platform/seam/serial_port.hpp"

namespace kestra {

// A closed port as the settings tell: the device that they name, on this machine or behind a network,
// else the serial port of their number. Throws Failure for a number or a speed that is none, and for a
// network address that cannot be one.
std::unique_ptr<SerialPort> MakePort(const PortSettings& settings);

}  // namespace kestra
