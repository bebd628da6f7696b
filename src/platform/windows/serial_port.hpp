#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/seam/port_fault.hpp"
#include "platform/seam/serial_port.hpp"
#include "platform/shared/ports.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {

// A communications device: a serial port, a USB adapter.
class WindowsPort : public SerialPort {
 public:
  // Without a speed the device keeps the one that it has.
  WindowsPort(std::string device, std::optional<std::int32_t> speed, PortPatience patience = {});

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
  void SetUpLine(HANDLE handle) const;
  void RequireOpen() const;
  void DropStale();
  std::size_t Write(std::string_view bytes);
  std::size_t TakeInput();
  [[nodiscard]] std::size_t Queued() const;
  void RequireTransfer(bool done) const;

  std::string device_;
  std::optional<std::int32_t> speed_;
  PortPatience patience_;
  Handle handle_;
  bool stale_ = false;  // opened, and what the device still held not dropped yet
  std::string received_;
};

// The name under which the system opens a device: with "\\.\" before it, which COM10 and above need.
std::string DevicePath(std::string_view device);

// What a failed opening of a device, or a failed transfer on an open one, means.
PortFault OpeningFault(DWORD error);
PortFault TransferFault(DWORD error);

// The same as failures; one that nothing explains carries the system's number.
Failure OpeningFailure(const std::string& device, DWORD error);
Failure TransferFailure(const std::string& device, DWORD error);

// 8 data bits, no parity, one stop bit, no handshake, every byte value as it is; DTR and RTS raised.
// The speed as given, else as it is.
DCB RawLine(const DCB& now, std::optional<std::int32_t> speed);

// A read waits up to `look` for the first byte and comes back with what is there; a write that the line
// does not take gives up after `stall`. Both in milliseconds.
COMMTIMEOUTS LineTimeouts(std::int32_t look, std::int32_t stall);

}  // namespace kestra
