#include <stdexcept>

#include "http/tls.hpp"

namespace puerta {
namespace {

constexpr auto kNone =
    "en Windows la puerta no tiene TLS: déjela en 127.0.0.1, o detrás de quien lo tenga";

}  // namespace

void EnsureCertificate(const TlsFiles&, const std::vector<std::string>&) {
  throw std::runtime_error(kNone);
}

std::string Fingerprint(const std::string&) {
  return "";
}

WireMaker TlsWires(const TlsFiles&) {
  throw std::runtime_error(kNone);
}

}  // namespace puerta
