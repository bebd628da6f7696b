#include "panel/gate.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace impresora {
namespace {

constexpr std::array<std::string_view, 3> kLoopbacks{"localhost", "127.0.0.1", "[::1]"};
constexpr std::array<std::string_view, 2> kAnyAddress{"0.0.0.0", "[::]"};
constexpr std::string_view kScheme = "http://";

template <std::size_t N>
bool IsOneOf(std::string_view text, const std::array<std::string_view, N>& list) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

std::string Bracketed(const std::string& host) {
  const bool bare_ipv6 = host.find(':') != std::string::npos && host.front() != '[';
  return bare_ipv6 ? "[" + host + "]" : host;
}

// Written as a number: no name server has a say in where it leads.
bool IsNumericAddress(std::string_view host) {
  if (host.starts_with('[')) return true;
  return !host.empty() && host.find_first_not_of("0123456789.") == std::string_view::npos;
}

std::optional<Refusal> JudgeSender(const Head& head, const OwnAddress& own) {
  if (head.Count("host") != 1 || !own.IsOwnHost(head.Value("host"))) {
    return Refusal{403, "este no es el nombre del panel"};
  }
  if (head.Count("origin") > 0 && !own.IsOwnOrigin(head.Value("origin"))) {
    return Refusal{403, "el pedido viene de otra página"};
  }
  const std::string_view site = head.Value("sec-fetch-site");
  if (site.empty() || site == "same-origin" || site == "none") return std::nullopt;
  // A link to the page itself does no harm.
  const bool follows_link = head.method == "GET" && head.target == "/" &&
                            head.Value("sec-fetch-mode") == "navigate" &&
                            head.Value("sec-fetch-dest") == "document";
  if (follows_link) return std::nullopt;
  return Refusal{403, "el pedido viene de otra página"};
}

bool IsJson(std::string_view type) {
  constexpr std::string_view kType = "application/json";
  if (!type.starts_with(kType)) return false;
  type.remove_prefix(kType.size());
  return type.empty() || type.front() == ';' || type.front() == ' ';
}

std::optional<Refusal> JudgeBody(const Head& head) {
  const bool has_body = head.method == "POST";
  if (head.Count("transfer-encoding") > 0) return Refusal{411, "falta Content-Length"};
  if (head.Count("content-length") > 1) return Refusal{400, "dos largos del cuerpo"};
  if (head.Count("content-length") == 0) {
    return has_body ? std::optional(Refusal{411, "falta Content-Length"}) : std::nullopt;
  }
  const std::string_view text = head.Value("content-length");
  std::size_t length = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), length);
  if (read.ec == std::errc::result_out_of_range || length > kLargestBody) {
    return Refusal{413, "el cuerpo pasa de 64 KiB"};
  }
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) {
    return Refusal{400, "el largo del cuerpo no es un número"};
  }
  if (!has_body && length > 0) return Refusal{400, "este pedido no lleva cuerpo"};
  if (has_body && !IsJson(head.Value("content-type"))) {
    return Refusal{415, "el cuerpo tiene que ser application/json"};
  }
  return std::nullopt;
}

}  // namespace

OwnAddress::OwnAddress(const std::string& host, int port)
    : host_(Bracketed(host)), port_(std::to_string(port)) {}

bool OwnAddress::IsOwnHost(std::string_view host) const {
  const std::string ending = ":" + port_;
  if (host.ends_with(ending) && host.find(ending) > 0) {
    host.remove_suffix(ending.size());
  } else if (port_ != "80") {
    return false;
  }
  if (host == host_ || IsOneOf(host, kLoopbacks)) return true;
  return IsOneOf(host_, kAnyAddress) && IsNumericAddress(host);
}

bool OwnAddress::IsOwnOrigin(std::string_view origin) const {
  return origin.starts_with(kScheme) && IsOwnHost(origin.substr(kScheme.size()));
}

bool OwnAddress::IsLoopback() const {
  return IsOneOf(host_, kLoopbacks) || host_.starts_with("127.");
}

std::string OwnAddress::Url() const {
  return std::string(kScheme) + host_ + ":" + port_ + "/";
}

std::optional<Refusal> Judge(const Head& head, const OwnAddress& own) {
  if (head.target.size() > kLongestTarget) return Refusal{414, "la dirección es demasiado larga"};
  if (const auto refusal = JudgeSender(head, own)) return refusal;
  constexpr std::array<std::string_view, 4> kMethods{"GET", "HEAD", "POST", "DELETE"};
  if (!IsOneOf(head.method, kMethods)) return Refusal{405, "método no admitido"};
  return JudgeBody(head);
}

std::string CleanedHead(const Head& head) {
  constexpr std::array<std::string_view, 4> kRead{"host", "content-type", "content-length",
                                                  "last-event-id"};
  std::string clean = head.method + " " + head.target + " HTTP/1.1\r\n";
  for (const auto& [name, value] : head.fields) {
    if (IsOneOf(name, kRead)) clean.append(name).append(": ").append(value).append("\r\n");
  }
  return clean + "Connection: close\r\n\r\n";
}

}  // namespace impresora
