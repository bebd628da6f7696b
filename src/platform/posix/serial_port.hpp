#pragma once

#include <termios.h>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/posix/files.hpp"
#include "platform/seam/port_fault.hpp"
#include "platform/seam/serial_port.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

// A terminal device: a serial port, a USB adapter, a pseudo-terminal.
class PosixPort : public SerialPort {
 public:
  // Without a speed the device keeps the one that it has.
  PosixPort(std::string device, std::optional<std::int32_t> speed, PortPatience patience = {});
  PosixPort(const PosixPort&) = delete;
  PosixPort& operator=(const PosixPort&) = delete;
  ~PosixPort() override;

  [[nodiscard]] bool PortOpen() const override { return static_cast<bool>(fd_); }
  void PortOpen(bool open) override;
  void Output(std::string_view bytes) override;
  std::size_t InBufferCount() override;
  void DiscardInput() override;
  std::string Input() override;
  [[nodiscard]] std::string_view Waiting() const override { return received_; }

 private:
  void Open();
  void Close();
  void SetUpLine(int fd) const;
  void RequireOpen() const;
  void DropStale();
  [[nodiscard]] bool InputWithin(int milliseconds) const;
  void TakeInput();
  [[noreturn]] void ThrowTransferFault(int error) const;

  std::string device_;
  std::optional<std::int32_t> speed_;
  PortPatience patience_;
  FileDescriptor fd_;
  bool closed_to_others_ = false;
  bool stale_ = false;  // opened, and what the device still held not dropped yet
  std::string received_;
};

// What a failed opening of a device, or a failed transfer on an open one, means.
PortFault OpeningFault(int error);
PortFault TransferFault(int error);

// Raw bytes both ways, 8 data bits, no parity, one stop bit, no handshake; the speed as given, else
// as it is. What says nothing about that stays as the device has it.
termios RawLine(const termios& now, std::optional<std::int32_t> speed);

bool SameLine(const termios& a, const termios& b);

}  // namespace kestra
