#pragma once

#include <array>
#include <asio.hpp>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"
#include "program/write_queue.hpp"

namespace impresora {

// A serial port of this machine, for a null-modem cable to the host's: raw, 8 data bits, no parity,
// 1 stop bit, no handshake.
class SerialDevice : public Endpoint {
 public:
  // At 9600 bits a second when `baud` is 0. Throws CannotOpen when the device cannot be had.
  SerialDevice(asio::io_context& loop, std::string device, int baud);

  std::string Port() const override { return device_; }
  void Start(LineEvents events) override;
  void Write(std::string_view bytes) override;
  void HangUp() override;

 private:
  void Open();
  void Reopen();
  void Read();

  std::string device_;
  unsigned baud_;
  asio::serial_port line_;
  asio::steady_timer retry_;
  WriteQueue<asio::serial_port> leaving_;
  LineEvents events_;
  std::array<char, 4096> buffer_{};
};

}  // namespace impresora
