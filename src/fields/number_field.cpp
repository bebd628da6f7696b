#include "fields/number_field.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "base/failure.hpp"
#include "fields/text_field.hpp"

namespace kestra {

namespace {

// Beyond this many digits a double says nothing about the number that was meant.
constexpr int kSignificant = 15;

// |value| as 0.DIGITS x 10^point, 15 significant digits.
struct Decimal {
  std::string digits;
  int point = 0;
};

Decimal ToDecimal(double value) {
  if (!std::isfinite(value)) throw Overflow();
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*e", kSignificant - 1, std::fabs(value));
  const std::string_view scientific(text.data());
  const auto e = scientific.find('e');
  Decimal decimal;
  // The separator behind the first digit is the host's, and may be any text.
  decimal.digits.append(scientific.substr(0, 1));
  decimal.digits.append(scientific.substr(e - (kSignificant - 1), kSignificant - 1));
  decimal.point = std::atoi(text.data() + e + 1) + 1;  // NOLINT(cert-err34-c): snprintf wrote it
  return decimal;
}

enum class Halves { kAwayFromZero, kToEven };

bool RoundsUp(const std::string& digits, std::size_t keep, Halves halves) {
  if (keep >= digits.size() || digits[keep] < '5') return false;
  const bool tie =
      digits[keep] == '5' && digits.find_first_not_of('0', keep + 1) == std::string::npos;
  if (!tie || halves == Halves::kAwayFromZero) return true;
  return keep > 0 && (digits[keep - 1] - '0') % 2 != 0;
}

// Adds one to the last digit; a carry out of the front makes the text a digit longer.
void Increment(std::string& digits) {
  for (auto i = digits.size(); i > 0; --i) {
    if (digits[i - 1] != '9') {
      ++digits[i - 1];
      return;
    }
    digits[i - 1] = '0';
  }
  digits.insert(0, 1, '1');
}

// |value| x 10^decimals rounded to a whole number, as digits (at least decimals + 1 of them).
std::string ScaledDigits(double value, std::int32_t decimals, Halves halves) {
  auto [digits, point] = ToDecimal(value);
  const auto keep = point + decimals;
  if (keep < 0) {
    digits.clear();
  } else {
    const auto kept = static_cast<std::size_t>(keep);
    const bool up = RoundsUp(digits, kept, halves);
    digits.resize(kept, '0');
    if (up) Increment(digits);
  }
  const auto least = static_cast<std::size_t>(decimals) + 1;
  if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
  return digits;
}

std::string WithPoint(std::string digits, std::int32_t decimals) {
  if (decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
  return digits;
}

std::int16_t Width(const Digits& digits) {
  const int width = digits.integers + digits.decimals + (digits.include_point == 1 ? 1 : 0);
  if (width > std::numeric_limits<std::int16_t>::max() ||
      width < std::numeric_limits<std::int16_t>::min()) {
    throw Overflow();
  }
  return static_cast<std::int16_t>(width);
}

}  // namespace

std::string FixedDecimal(double value, std::int32_t decimals) {
  if (decimals < 0) throw InvalidCall();
  return WithPoint(ScaledDigits(value, decimals, Halves::kAwayFromZero), decimals);
}

std::string FormatearNumero(double value, const Digits& shape) {
  const auto width = Width(shape);
  auto digits = FixedDecimal(value, shape.decimals);
  if (shape.include_point != 1) std::erase(digits, '.');
  const auto pad = width - static_cast<std::int64_t>(digits.size());
  if (pad < 0) throw InvalidCall();
  digits.insert(0, static_cast<std::size_t>(pad), '0');
  // Kept as is: the sign widens the field by one; the printer has always been sent it so.
  if (value < 0) digits.insert(0, 1, '-');
  return digits;
}

double RoundToHundredths(double value) {
  // What has no hundredths any more is round already, and more than the digits below can tell.
  constexpr double kWithoutHundredths = 1e13;
  if (std::fabs(value) >= kWithoutHundredths) {
    if (!std::isfinite(value)) throw Overflow();
    return value;
  }
  std::int64_t hundredths = 0;
  for (const char digit : ScaledDigits(value, 2, Halves::kToEven)) {
    hundredths = hundredths * 10 + (digit - '0');
  }
  const double rounded = static_cast<double>(hundredths) / 100;
  return value < 0 ? -rounded : rounded;
}

std::string HundredthsDigits(double value) {
  auto digits = FixedDecimal(value, 2);
  std::erase(digits, '.');
  return value < 0 ? digits.insert(0, 1, '-') : digits;
}

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
