#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "machine/settings.hpp"

namespace kestra::line_faults {

struct Override {
  std::string_view key;
  std::string_view value;
};

// A document as a till issues it, call by call.
struct CanonicalDocument {
  std::string_view name;
  impresora::Family family;
  std::vector<Override> configuration;
  std::vector<std::string_view> calls;  // the operation and its arguments, in words
};

// Each family, each kind, the reports, and last a call that the printer refuses.
std::span<const CanonicalDocument> CanonicalDocuments();

}  // namespace kestra::line_faults
