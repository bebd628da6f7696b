#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "state/certainty.hpp"

namespace kestra {

// A number as a command's field has it: so many units of 10^-decimals, without zeros at its end.
struct Decimal {
  std::int64_t units = 0;
  std::int32_t decimals = 0;
};

// Digits with an implied point, or with a written one. Nothing for what is no number.
std::optional<Decimal> ReadDecimal(std::string_view field, std::int32_t decimals);

// In hundredths, halves away from zero; the slack is 1 where it was not exact. Nothing when it is too
// large.
std::optional<Amount> Hundredths(const Decimal& number);
std::optional<Amount> Product(const Decimal& a, const Decimal& b);

// amount * part / whole, halves away from zero.
std::optional<std::int64_t> Share(std::int64_t amount, std::int64_t part, std::int64_t whole);

}  // namespace kestra
