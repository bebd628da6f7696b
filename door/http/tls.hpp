// TLS: with a certificate that is given, or one that is made the first time. Not every system has it.
#pragma once

#include <string>
#include <vector>

#include "http/wire.hpp"

namespace puerta {

struct TlsFiles {
  std::string certificate;
  std::string key;
};

// Makes both files where neither is there. Throws std::runtime_error with words for a person.
void EnsureCertificate(const TlsFiles& files, const std::vector<std::string>& names);

// SHA-256 of the certificate as browsers show it: "AB:CD:...".
std::string Fingerprint(const std::string& certificate);

WireMaker TlsWires(const TlsFiles& files);

}  // namespace puerta
