#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "panel/head.hpp"

namespace impresora {

inline constexpr std::size_t kLargestHead = 16'384;
inline constexpr std::size_t kLongestTarget = 1'024;
inline constexpr std::size_t kLargestBody = 65'536;

// Where the panel is: what a browser of its own page says in Host and Origin.
class OwnAddress {
 public:
  OwnAddress(const std::string& host, int port);

  // Names that anybody could point at this machine are none of them.
  bool IsOwnHost(std::string_view host) const;
  bool IsOwnOrigin(std::string_view origin) const;

  bool IsLoopback() const;
  std::string Url() const;

 private:
  std::string host_;  // IPv6 in brackets
  std::string port_;
};

struct Refusal {
  int status;
  std::string_view words;
};

// Whether a request may be looked at: from the panel's own page or a program, not from some other
// page that happens to be open in the same browser; of a size and form that are worth reading.
std::optional<Refusal> Judge(const Head& head, const OwnAddress& own);

// The request as the panel's own code gets it: nothing but the fields that it reads.
std::string CleanedHead(const Head& head);

}  // namespace impresora
