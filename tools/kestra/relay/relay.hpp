#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "line/line.hpp"

namespace kestra::tool {

// Where the till is: the line that it is given, as the virtual printer has them.
struct TillEnd {
  std::string link;    // of a pseudo-terminal
  std::string tcp;     // HOST:PUERTO
  std::string device;  // a serial port
  std::string pipe;    // of Windows
};

struct RelaySettings {
  TillEnd till;
  std::string printer;  // "tcp:HOST:PUERTO" or a serial port
  int baud = 0;         // of serial ports
};

// What passes is told: the line that the till has to open, then each exchange.
struct RelayEvents {
  std::function<void(const std::string& port)> ready;
  std::function<void(const impresora::Exchange& exchange)> exchanged;
};

// Carries bytes from one to the other as they are, until a signal ends it. Throws std::exception when an end cannot
// be had.
void Relay(const RelaySettings& settings, const RelayEvents& events);

}  // namespace kestra::tool
