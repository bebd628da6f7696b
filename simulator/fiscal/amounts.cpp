#include "fiscal/amounts.hpp"

#include <algorithm>
#include <limits>

namespace impresora {
namespace {

constexpr int kMostDigits = 18;  // what 64 bits hold
constexpr std::int64_t kRateUnit = 10'000;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::int64_t PowerOfTen(int exponent) {
  std::int64_t power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

std::int64_t Rescale(std::int64_t value, int from, int to) {
  if (from <= to) return value * PowerOfTen(to - from);
  return DivideRounded(value, PowerOfTen(from - to));
}

std::string WithoutTrailingZeros(std::string text, std::size_t zeros_at_most) {
  for (std::size_t i = 0; i < zeros_at_most && text.back() == '0'; ++i) text.pop_back();
  if (text.back() == ',') text.pop_back();
  return text;
}

}  // namespace

std::int64_t DivideRounded(std::int64_t numerator, std::int64_t denominator) {
  const std::int64_t half = denominator / 2;
  if (numerator < 0) return -((half - numerator) / denominator);
  return (numerator + half) / denominator;
}

std::int64_t Share(std::int64_t value, std::int64_t part, std::int64_t whole) {
  if (value < 0) return -Share(-value, part, whole);
  std::int64_t quotient = 0;
  std::int64_t remainder = 0;
  for (int bit = 62; bit >= 0; --bit) {
    quotient *= 2;
    remainder *= 2;
    if (((value >> bit) & 1) != 0) remainder += part;
    quotient += remainder / whole;
    remainder %= whole;
  }
  return remainder * 2 >= whole ? quotient + 1 : quotient;
}

std::optional<std::int64_t> ParseDigits(std::string_view text, Digits digits, int decimals) {
  std::int64_t value = 0;
  int count = 0;
  int before_point = 0;
  bool point = false;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
      before_point = count;
      continue;
    }
    if (!IsDigit(c) || ++count > kMostDigits - kPriceDecimals) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  if (count == 0 || count > digits.integers + digits.decimals) return std::nullopt;
  if (!point) return Rescale(value, digits.decimals, decimals);
  const int after_point = count - before_point;
  if (before_point > digits.integers || after_point > digits.decimals) return std::nullopt;
  return Rescale(value, after_point, decimals);
}

std::optional<std::int64_t> LineAmount(std::int64_t quantity, std::int64_t price) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / 2;
  if (price != 0 && quantity > kMost / price) return std::nullopt;
  const int surplus = kQuantityDecimals + kPriceDecimals - kMoneyDecimals;
  const std::int64_t amount = DivideRounded(quantity * price, PowerOfTen(surplus));
  if (amount > kLargestTotal) return std::nullopt;
  return amount;
}

std::int64_t IvaOnNet(std::int64_t net, std::int64_t rate) {
  return DivideRounded(net * rate, kRateUnit);
}

std::int64_t NetOfGross(std::int64_t gross, std::int64_t rate) {
  return DivideRounded(gross * kRateUnit, kRateUnit + rate);
}

std::string FormatDecimal(std::int64_t units, int decimals) {
  const bool negative = units < 0;
  std::string reversed;
  std::int64_t rest = negative ? -units : units;
  for (int position = 0; rest > 0 || position <= decimals; ++position) {
    if (position == decimals && decimals > 0) reversed += ',';
    if (position > decimals && (position - decimals) % 3 == 0) reversed += '.';
    reversed += static_cast<char>('0' + rest % 10);
    rest /= 10;
  }
  if (negative) reversed += '-';
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

std::string FormatMoney(std::int64_t hundredths) {
  return FormatDecimal(hundredths, kMoneyDecimals);
}

std::string FormatQuantity(std::int64_t ten_thousandths) {
  return WithoutTrailingZeros(FormatDecimal(ten_thousandths, kQuantityDecimals), kQuantityDecimals);
}

std::string FormatPrice(std::int64_t ten_thousandths) {
  return WithoutTrailingZeros(FormatDecimal(ten_thousandths, kPriceDecimals),
                              kPriceDecimals - kMoneyDecimals);
}

std::string Padded(std::int64_t value, int width) {
  const std::string digits = std::to_string(value < 0 ? -value : value);
  const auto wanted = static_cast<std::size_t>(width);
  std::string text(digits.size() < wanted ? wanted - digits.size() : 0, '0');
  text += digits;
  return value < 0 ? "-" + text : text;
}

}  // namespace impresora
