#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/seam/serial_port.hpp"
#include "platform/shared/ports.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {

// Does it name a pipe of this machine, "\\.\pipe\NAME"?
bool IsPipe(std::string_view device);

// A named pipe, behind which a program stands for a device: the virtual printer, or a witness before a real one. It
// has no line to be set up, and the system knows no times for it.
class PipePort : public SerialPort {
 public:
  explicit PipePort(std::string device, PortPatience patience = {});

  [[nodiscard]] bool PortOpen() const override { return static_cast<bool>(handle_); }
  void PortOpen(bool open) override;
  void Output(std::string_view bytes) override;
  std::size_t InBufferCount() override;
  void DiscardInput() override;
  std::string Input() override;
  [[nodiscard]] std::string_view Waiting() const override { return received_; }

 private:
  void Open();
  void Close();
  void RequireOpen() const;
  void DropStale();
  void TakeInput();
  [[nodiscard]] std::size_t Queued() const;

  std::string device_;
  PortPatience patience_;
  Handle handle_;
  bool stale_ = false;  // opened, and what its server greeted with not dropped yet
  std::string received_;
};

}  // namespace kestra
