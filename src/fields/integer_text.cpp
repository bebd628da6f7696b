#include "fields/integer_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/failure.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"

namespace kestra {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kDigits = "0123456789";

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// "-12", "+12", "12" -> "-12", "12", "12": what from_chars reads.
std::string_view WithoutPlus(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  return text;
}

std::string_view WithoutSign(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  return text;
}

bool AllDigits(std::string_view text) {
  return text.find_first_not_of(kDigits) == std::string_view::npos;
}

template <typename T>
T Convert(std::string_view text) {
  if (!IsNumber(text)) throw TypeMismatch();
  const auto number = WithoutPlus(Trim(text));
  T value{};
  if (std::from_chars(number.data(), number.data() + number.size(), value).ec != std::errc{}) {
    throw Overflow();
  }
  return value;
}

}  // namespace

bool IsNumber(std::string_view text) {
  const auto digits = WithoutSign(Trim(text));
  return !digits.empty() && AllDigits(digits);
}

std::int32_t ToNumber(std::string_view text) {
  return Convert<std::int32_t>(text);
}

std::int16_t ToShortNumber(std::string_view text) {
  return Convert<std::int16_t>(text);
}

double ToRealNumber(std::string_view text) {
  const auto number = Trim(text);
  const auto unsigned_part = WithoutSign(number);
  const auto point = std::min(unsigned_part.find('.'), unsigned_part.size());
  const auto whole = unsigned_part.substr(0, point);
  const auto fraction = unsigned_part.substr(std::min(point + 1, unsigned_part.size()));
  if ((whole.empty() && fraction.empty()) || !AllDigits(whole) || !AllDigits(fraction)) {
    throw TypeMismatch();
  }
  // Both are exact up to fifteen digits, and their quotient is then the nearest number there is.
  double digits = 0;
  for (const auto part : {whole, fraction}) {
    for (const char digit : part) digits = digits * 10 + (digit - '0');
  }
  const double value = digits / std::pow(10.0, static_cast<double>(fraction.size()));
  if (!std::isfinite(value)) throw Overflow();
  return number.starts_with('-') ? -value : value;
}

std::string PaddedInteger(std::string_view text, std::size_t digits) {
  const auto number = Trim(text);
  std::string whole(digits, '0');
  try {
    // Digits as they stand: a counter may have more of them than a double holds.
    whole =
        IsNumber(number) ? std::string(WithoutSign(number)) : FixedDecimal(ToRealNumber(number), 0);
  } catch (const Failure&) {
    return whole;
  }
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  const bool negative = number.starts_with('-') && !whole.empty();
  whole = PadLeft(whole, digits, '0');
  return negative ? whole.insert(0, 1, '-') : whole;
}

}  // namespace kestra
