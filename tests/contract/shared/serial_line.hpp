#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contract/shared/bench.hpp"
#include "platform/seam/serial_port.hpp"

namespace kestra {

// A line with the test at its far end.
class SerialLine : public Bench {
 public:
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

// The twins of this platform: a device and a network, whose failures of opening what another program has
// differ, and what else it may have; and those with the fake.
std::vector<Twin<SerialLine>> OwnTwins();
std::vector<Twin<SerialLine>> SystemTwins();
std::vector<Twin<SerialLine>> SerialTwins();

}  // namespace kestra
