#include "protocol/amounts.hpp"

#include <algorithm>

namespace kestra {
namespace {

constexpr std::size_t kMostDigits = 17;
constexpr std::int32_t kCentDecimals = 2;

bool AreDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::int64_t Value(std::string_view digits, std::int64_t before = 0) {
  for (const char digit : digits) before = before * 10 + (digit - '0');
  return before;
}

Decimal Shortest(Decimal number) {
  while (number.decimals > 0 && number.units % 10 == 0) {
    number.units /= 10;
    --number.decimals;
  }
  return number;
}

std::int64_t Quotient(std::int64_t value, std::int64_t divisor) {
  const auto half = divisor / 2;
  return value < 0 ? -((-value + half) / divisor) : (value + half) / divisor;
}

}  // namespace

std::optional<Decimal> ReadDecimal(std::string_view field, std::int32_t decimals) {
  const auto point = field.find('.');
  const auto whole = field.substr(0, point);
  const auto rest = point == std::string_view::npos ? std::string_view() : field.substr(point + 1);
  if (whole.empty() && rest.empty()) return std::nullopt;
  if (!AreDigits(whole) || !AreDigits(rest)) return std::nullopt;
  const auto zeros = std::min(whole.find_first_not_of('0'), whole.size());
  if (whole.size() - zeros + rest.size() > kMostDigits) return std::nullopt;
  const auto places =
      point == std::string_view::npos ? decimals : static_cast<std::int32_t>(rest.size());
  return Shortest({Value(rest, Value(whole)), std::max(places, 0)});
}

std::optional<Amount> Hundredths(const Decimal& number) {
  auto units = number.units;
  for (auto places = number.decimals; places < kCentDecimals; ++places) {
    if (__builtin_mul_overflow(units, 10, &units)) return std::nullopt;
  }
  std::int64_t divisor = 1;
  for (auto places = number.decimals; places > kCentDecimals; --places) {
    if (__builtin_mul_overflow(divisor, 10, &divisor)) return std::nullopt;
  }
  return Amount{Quotient(units, divisor), units % divisor == 0 ? 0 : 1};
}

std::optional<Amount> Product(const Decimal& a, const Decimal& b) {
  Decimal product{0, a.decimals + b.decimals};
  if (__builtin_mul_overflow(a.units, b.units, &product.units)) return std::nullopt;
  return Hundredths(Shortest(product));
}

std::optional<std::int64_t> Share(std::int64_t amount, std::int64_t part, std::int64_t whole) {
  std::int64_t product = 0;
  if (whole <= 0 || __builtin_mul_overflow(amount, part, &product)) return std::nullopt;
  return Quotient(product, whole);
}

}  // namespace kestra
