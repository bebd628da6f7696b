#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestra {

// Where a printer behind a network is.
struct TcpAddress {
  std::string host;
  std::uint16_t port = 0;
  bool literal = false;  // the host stood in brackets: an address, no name to look up
};

// Does a device's name tell of a network ("tcp:...") rather than of this machine's own devices?
bool IsTcp(std::string_view device);

// "tcp:HOST:PORT" or "tcp:[ADDRESS]:PORT", the port from 1 to 65535; nothing when it is neither.
std::optional<TcpAddress> TcpAddressOf(std::string_view device);

}  // namespace kestra
