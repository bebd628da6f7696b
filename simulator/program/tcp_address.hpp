#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace impresora {

struct TcpAddress {
  std::string host = "127.0.0.1";  // nobody but this machine unless told otherwise
  std::uint16_t port = 0;          // 0: any that is free
};

// HOST:PORT, [IPV6]:PORT, :PORT or PORT; false when it is none of them.
bool ReadTcpAddress(std::string_view text, TcpAddress& address);

}  // namespace impresora
