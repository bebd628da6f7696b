#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kestra {

// An answer carries two status words and up to thirteen data fields.
constexpr std::size_t kAnswerFields = 15;
using Fields = std::array<std::string, kAnswerFields>;

// Cuts the next field off the front of `answers`: what stands between a separator and the next
// one (or the end byte). Empty, with nothing cut, when there is no end.
std::string SiguienteCampo(std::string& answers);

// All fields in order; `answers` is left as the last cut left it. Missing ones are empty.
Fields CutFields(std::string& answers);

// The operator's listing: every field under its label.
std::string ListingText(const Fields& fields);

}  // namespace kestra
