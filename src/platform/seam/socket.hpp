#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/seam/port_fault.hpp"

namespace kestra {

// Where a printer behind a network is.
struct TcpAddress {
  std::string host;
  std::uint16_t port = 0;
  bool literal = false;  // the host stood in brackets: an address, no name to look up
};

// The system's network, for as long as the object lives.
class Network {
 public:
  Network() noexcept;
  Network(const Network&) = delete;
  Network& operator=(const Network&) = delete;
  ~Network();  // NOLINT(performance-trivially-destructible): not on every platform

  // Why there is none; 0 when there is.
  [[nodiscard]] int Error() const { return error_; }

 private:
  int error_ = 0;
};

// An address and port, byte for byte as the system has them.
using SocketAddress = std::string;

// What the host may be reached at, likeliest first; nothing when nobody knows the host.
std::vector<SocketAddress> Resolve(const TcpAddress& address);

// What a call on a connection came to.
struct SocketResult {
  std::size_t count = 0;           // bytes that went through; without a fault, 0 is "not now"
  std::optional<PortFault> fault;  // the connection is of no use any more
  int error = 0;                   // the system's number for it
};

inline SocketResult Moved(std::size_t count) {
  return {.count = count, .fault = std::nullopt, .error = 0};
}

inline SocketResult Failed(PortFault fault, int error) {
  return {.count = 0, .fault = fault, .error = error};
}

enum class SocketEvent : std::uint8_t { kReadable, kWritable };

// One end of a TCP connection. Only Connect and Wait take their time; what a program that the host
// starts inherits is never a connection.
class Socket {
 public:
  Socket() = default;
  Socket(Socket&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(handle_, other.handle_);
    other.Close();
    return *this;
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  ~Socket() { Close(); }

  explicit operator bool() const { return handle_ != kNone; }

  // A connection in place of the present one; none after a fault.
  SocketResult Connect(const SocketAddress& address, std::int32_t milliseconds);

  [[nodiscard]] SocketResult Send(std::string_view bytes) const;
  SocketResult Receive(char* bytes, std::size_t room) const;

  // False when the time was up first. What went wrong meanwhile the next call tells.
  [[nodiscard]] bool Wait(SocketEvent event, std::int32_t milliseconds) const;

  // Tells the far end that nothing more is coming.
  void EndSending() const;

  // Closes it at once: what is on its way is dropped, and the far end learns that it is.
  void Abort();

  void Close();

 private:
  static constexpr std::intptr_t kNone = -1;

  std::intptr_t handle_ = kNone;
};

}  // namespace kestra
