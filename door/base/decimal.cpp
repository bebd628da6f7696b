#include "base/decimal.hpp"

#include <charconv>
#include <cstdlib>
#include <limits>

namespace puerta {
namespace {

constexpr std::size_t kMostIntegers = 12;
constexpr std::size_t kMostDecimals = 6;

constexpr std::int64_t PowerOfTen(int exponent) {
  std::int64_t power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

bool AreDigits(std::string_view text, std::size_t most) {
  return !text.empty() && text.size() <= most &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::int64_t NumberOf(std::string_view digits) {
  std::int64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Decimal Shortened(Decimal value) {
  while (value.decimals > 0 && value.units % 10 == 0) {
    value.units /= 10;
    --value.decimals;
  }
  return value;
}

std::optional<std::int64_t> Times(std::int64_t a, std::int64_t b) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  if (b != 0 && std::abs(a) > kMost / std::abs(b)) return std::nullopt;
  return a * b;
}

}  // namespace

std::optional<Decimal> ReadDecimal(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const auto point = text.find('.');
  const auto integers = text.substr(0, point);
  const auto decimals =
      point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
  const bool has_point = point != std::string_view::npos;
  const bool padded = integers.size() > 1 && integers.front() == '0';
  if (!AreDigits(integers, kMostIntegers) || padded) return std::nullopt;
  if (has_point && !AreDigits(decimals, kMostDecimals)) return std::nullopt;
  const int places = static_cast<int>(decimals.size());
  const std::int64_t units = NumberOf(integers) * PowerOfTen(places) + NumberOf(decimals);
  return Shortened({negative ? -units : units, places});
}

std::string DecimalText(const Decimal& value) {
  return FixedText(value.units, value.decimals);
}

std::string FixedText(std::int64_t units, int decimals) {
  const auto places = static_cast<std::size_t>(decimals);
  std::string digits = std::to_string(std::abs(units));
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  if (places > 0) digits.insert(digits.size() - places, 1, '.');
  return units < 0 ? "-" + digits : digits;
}

int IntegerDigits(const Decimal& value) {
  int digits = 0;
  for (std::int64_t rest = std::abs(value.units) / PowerOfTen(value.decimals); rest > 0; rest /= 10)
    ++digits;
  return digits;
}

std::optional<std::int64_t> UnitsOf(const Decimal& value, int decimals) {
  if (decimals >= value.decimals) return Times(value.units, PowerOfTen(decimals - value.decimals));
  return DivideRounded(value.units, PowerOfTen(value.decimals - decimals));
}

std::optional<std::int64_t> ProductUnits(const Decimal& a, const Decimal& b, int decimals) {
  const auto units = Times(a.units, b.units);
  if (!units) return std::nullopt;
  return UnitsOf({*units, a.decimals + b.decimals}, decimals);
}

double ToDouble(const Decimal& value) {
  return static_cast<double>(value.units) / static_cast<double>(PowerOfTen(value.decimals));
}

std::int64_t DivideRounded(std::int64_t numerator, std::int64_t denominator) {
  const std::int64_t whole = numerator / denominator;
  const std::int64_t rest = std::abs(numerator % denominator);
  if (rest < denominator - rest) return whole;
  return numerator < 0 ? whole - 1 : whole + 1;
}

// Long multiplication in twos, so that nothing on the way is larger than twice the whole.
std::int64_t ShareOf(std::int64_t value, std::int64_t part, std::int64_t whole) {
  constexpr int kHighestBit = 62;
  const auto amount = static_cast<std::uint64_t>(std::abs(value));
  std::int64_t quotient = 0;
  std::int64_t rest = 0;
  for (int bit = kHighestBit; bit >= 0; --bit) {
    rest = rest * 2 + (((amount >> static_cast<unsigned>(bit)) & 1U) != 0 ? part : 0);
    quotient = quotient * 2 + rest / whole;
    rest %= whole;
  }
  if (rest >= whole - rest) ++quotient;
  return value < 0 ? -quotient : quotient;
}

}  // namespace puerta
