#pragma once

#include <array>
#include <asio.hpp>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "program/endpoint.hpp"
#include "program/posix/descriptor.hpp"
#include "program/posix/port_link.hpp"

namespace impresora {

// A serial cable made by the system: hosts open Port(), the printer reads and writes the other end.
// The host's side is held open here too, so that the line stays up between one exchange of a host
// and the next.
class PseudoTerminal : public Endpoint {
 public:
  // `link` is the path of a symbolic link to the port, or nothing. Throws std::system_error when the
  // system has no terminal to give or the link cannot be had. With `first_baud` the terminal has that
  // speed until a host sets its own.
  PseudoTerminal(asio::io_context& loop, std::string link, int first_baud = 0);

  std::string Port() const override { return path_; }
  void Start(LineEvents events) override;
  void Write(std::string_view bytes) override;
  void HangUp() override;
  int HostBaud() const override;
  bool Occupy(bool by_another) override;

 private:
  using Clock = std::chrono::steady_clock;

  void Plug();
  void LockPort();
  void Link();
  void Read();
  void WatchForClosing();
  void AwaitClosing();
  void LookAfter(Clock::time_point at);
  void AwaitQuiet();

  asio::posix::stream_descriptor printer_side_;
  Descriptor host_side_;
  asio::posix::stream_descriptor watch_;
  asio::steady_timer quiet_;
  std::optional<Clock::time_point> quiet_at_;  // when the line will have been idle for a second
  int first_baud_;
  bool occupied_ = false;
  std::string link_path_;
  std::unique_ptr<PortLink> link_;
  std::string path_;
  LineEvents events_;
  std::array<char, 4096> buffer_{};
  alignas(8) std::array<char, 4096> closings_{};
};

}  // namespace impresora
