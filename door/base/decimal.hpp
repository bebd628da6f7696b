// Exact decimals, as a till writes them: "1234.50". No binary number stands between that and the printer's digits.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace puerta {

// `units` of 10^-`decimals`, without zeros behind that say nothing, so that equal amounts are equal.
struct Decimal {
  std::int64_t units = 0;
  int decimals = 0;

  bool operator==(const Decimal&) const = default;
};

// "12", "-0.5", "1234.50": no sign but a minus, no zeros in front, a digit before and behind the point, up to twelve
// digits before it and six behind. Nothing for all else.
std::optional<Decimal> ReadDecimal(std::string_view text);

// How it is read, and written in an answer.
std::string DecimalText(const Decimal& value);

// With exactly so many decimals: an amount of money has two.
std::string FixedText(std::int64_t units, int decimals);

// Digits before the point; none for what is less than one.
int IntegerDigits(const Decimal& value);

// In units of 10^-`decimals`, halves away from zero; nothing when 64 bits do not hold it.
std::optional<std::int64_t> UnitsOf(const Decimal& value, int decimals);
std::optional<std::int64_t> ProductUnits(const Decimal& a, const Decimal& b, int decimals);

// The nearest double, which the library rounds to the same digits.
double ToDouble(const Decimal& value);

// numerator / denominator, halves away from zero; the denominator is positive.
std::int64_t DivideRounded(std::int64_t numerator, std::int64_t denominator);

// value * part / whole, rounded, however large the product; 0 <= part <= whole, whole > 0.
std::int64_t ShareOf(std::int64_t value, std::int64_t part, std::int64_t whole);

}  // namespace puerta
