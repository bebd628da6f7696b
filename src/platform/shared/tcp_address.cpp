#include "platform/shared/tcp_address.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace kestra {
namespace {

constexpr std::string_view kPrefix = "tcp:";
constexpr std::size_t kLongestHost = 253;
constexpr std::string_view kInAddress = ".:%_-";
constexpr std::string_view kInName = "._-";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsHost(std::string_view host, std::string_view marks) {
  if (host.empty() || host.size() > kLongestHost) return false;
  return std::all_of(host.begin(), host.end(), [marks](char c) {
    return IsDigit(c) || IsLetter(c) || marks.find(c) != std::string_view::npos;
  });
}

// 0 when it is no port's number.
std::uint16_t PortOf(std::string_view digits) {
  std::uint16_t port = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, port);
  return error == std::errc() && rest == end ? port : std::uint16_t{0};
}

}  // namespace

bool IsTcp(std::string_view device) {
  if (device.size() < kPrefix.size()) return false;
  return std::equal(kPrefix.begin(), kPrefix.end(), device.begin(),
                    [](char wanted, char c) { return (IsLetter(c) ? c | 0x20 : c) == wanted; });
}

std::optional<TcpAddress> TcpAddressOf(std::string_view device) {
  if (!IsTcp(device)) return std::nullopt;
  device.remove_prefix(kPrefix.size());
  const std::size_t colon = device.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  std::string_view host = device.substr(0, colon);
  const std::uint16_t port = PortOf(device.substr(colon + 1));
  const bool literal = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (literal) host = host.substr(1, host.size() - 2);
  if (port == 0 || !IsHost(host, literal ? kInAddress : kInName)) return std::nullopt;
  return TcpAddress{.host = std::string(host), .port = port, .literal = literal};
}

}  // namespace kestra
