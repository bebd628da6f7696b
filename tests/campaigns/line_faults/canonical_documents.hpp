#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "machine/settings.hpp"

namespace kestra::line_faults {

// A document as a till issues it, call by call; documents.txt has them.
struct CanonicalDocument {
  std::string name;
  impresora::Family family = impresora::Family::kTicket;
  std::vector<std::pair<std::string, std::string>> configuration;
  std::vector<std::string> calls;  // the operation and its arguments, in words
};

std::span<const CanonicalDocument> CanonicalDocuments();

}  // namespace kestra::line_faults
