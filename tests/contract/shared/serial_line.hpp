#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/seam/serial_port.hpp"

namespace kestra {

// A line with the test at its far end.
class SerialLine {
 public:
  SerialLine() = default;
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;
  virtual ~SerialLine() = default;

  // A closed port at the near end.
  virtual std::unique_ptr<SerialPort> MakePort() = 0;

  // Sends bytes to the port. They have arrived when it returns.
  virtual void Send(std::string_view bytes) = 0;

  // The next bytes that the port has written, as many as asked for; fewer when they do not come.
  virtual std::string Receive(std::size_t count) = 0;

  // Another program takes the device, or gives it back.
  virtual void Occupy(bool taken) = 0;

  // The plug is pulled, for good.
  virtual void Unplug() = 0;
};

// A way to have such a line.
struct SerialTwin {
  const char* name;
  std::unique_ptr<SerialLine> (*make)();
  std::int32_t in_use = 8005;  // failure of opening what another program has
};

// The twins that this platform can try.
std::vector<SerialTwin> SerialTwins();

}  // namespace kestra
