#include "program/tcp_address.hpp"

#include <charconv>

namespace impresora {
namespace {

bool ReadPort(std::string_view text, std::uint16_t& port) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, port);
  return result.ec == std::errc() && result.ptr == end;
}

// Without the brackets that keep the colons of an address apart from the one before the port.
std::string_view WithoutBrackets(std::string_view host) {
  if (host.size() < 2 || host.front() != '[' || host.back() != ']') return host;
  return host.substr(1, host.size() - 2);
}

}  // namespace

bool ReadTcpAddress(std::string_view text, TcpAddress& address) {
  const std::size_t colon = text.rfind(':');
  std::string_view host;
  if (colon != std::string_view::npos) {
    host = text.substr(0, colon);
    text.remove_prefix(colon + 1);
  }
  const std::string_view bare = WithoutBrackets(host);
  const bool several_colons = host.find(':') != std::string_view::npos;
  if (several_colons && bare.size() == host.size()) return false;
  if (bare.find_first_of("[] \t/") != std::string_view::npos) return false;
  if (!bare.empty()) address.host = bare;
  return ReadPort(text, address.port);
}

}  // namespace impresora
