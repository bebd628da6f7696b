#pragma once

#include <memory>
#include <string>

#include "contract/shared/device_line.hpp"

namespace kestra {

// A COM port whose far end a program of the other system holds: see far_end.py.
class ComLine : public DeviceLine {
 public:
  ComLine();

  std::unique_ptr<SerialPort> MakePort() override;
  void Send(std::string_view bytes) override;
  std::string Receive(std::size_t count) override;
  void Occupy(bool taken) override;
  void Unplug() override;

  // "COM20"
  [[nodiscard]] const std::string& Device() const override { return device_; }

 private:
  std::string device_;
};

}  // namespace kestra
