#pragma once

#include <memory>
#include <string>

#include "contract/shared/device_line.hpp"
#include "platform/posix/files.hpp"

namespace kestra {

// A pseudo-terminal: the port opens its device, the test holds the other side.
class PtyLine : public DeviceLine {
 public:
  PtyLine();

  std::unique_ptr<SerialPort> MakePort() override;
  void Send(std::string_view bytes) override;
  std::string Receive(std::size_t count) override;
  void Occupy(bool taken) override;
  void Unplug() override { far_.Close(); }

  [[nodiscard]] const std::string& Device() const override { return device_; }
  // The device, held open beside the port.
  [[nodiscard]] int Near() const { return near_.Get(); }
  [[nodiscard]] int Far() const { return far_.Get(); }

 private:
  FileDescriptor far_;
  std::string device_;
  FileDescriptor near_;
  std::unique_ptr<SerialPort> occupant_;
};

// Reads what a descriptor gives, until so many bytes are there or no more come.
std::string ReadSome(int fd, std::size_t count);

}  // namespace kestra
