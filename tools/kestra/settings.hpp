#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/seam/serial_port.hpp"

namespace kestra::tool {

// What Fiscal.ini of the current folder and the environment say of the way to the printer, as the library reads them.
struct Way {
  std::string device;  // ImpresoraDispositivo, or what the environment names in its place
  std::string number;  // ImpresoraPuerto
  std::string speed;   // ImpresoraConfig
  std::string family;  // TipoComprobante's two letters
  std::string model;   // ModeloNombre
};

Way ReadWay();

// Behind a network or a pipe, where the line's speed is somebody else's.
bool LeadsToProgram(const Way& way);

// The name of the device that the library would open; empty when it would refuse the settings.
std::string DeviceOf(const Way& way);

// Closed. Throws Stop for settings that are none.
std::unique_ptr<SerialPort> PortOf(const Way& way);

}  // namespace kestra::tool
