#pragma once

#include <optional>
#include <string_view>

#include "platform/seam/socket.hpp"

namespace kestra {

// Does a device's name tell of a network ("tcp:...") rather than of this machine's own devices?
bool IsTcp(std::string_view device);

// "tcp:HOST:PORT" or "tcp:[ADDRESS]:PORT", the port from 1 to 65535; nothing when it is neither.
std::optional<TcpAddress> TcpAddressOf(std::string_view device);

}  // namespace kestra
