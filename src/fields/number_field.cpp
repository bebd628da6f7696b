#include "fields/number_field.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

#include "frame/failure.hpp"

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
  if (!std::isfinite(value)) throw Desbordamiento();
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                 std::chars_format::scientific, kSignificant - 1)
                       .ptr;
  const std::string_view scientific(text.data(), static_cast<std::size_t>(end - text.data()));
  const auto e = scientific.find('e');
  Decimal decimal;
  decimal.digits.append(scientific.substr(0, 1)).append(scientific.substr(2, e - 2));
  const auto sign = scientific[e + 1];
  std::from_chars(scientific.data() + e + 2, end, decimal.point);
  decimal.point = (sign == '-' ? -decimal.point : decimal.point) + 1;
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

// |value| x 10^decimales rounded to a whole number, as digits (at least decimales + 1 of them).
std::string ScaledDigits(double value, std::int32_t decimales, Halves halves) {
  auto [digits, point] = ToDecimal(value);
  const auto keep = point + decimales;
  if (keep < 0) {
    digits.clear();
  } else {
    const auto kept = static_cast<std::size_t>(keep);
    const bool up = RoundsUp(digits, kept, halves);
    digits.resize(kept, '0');
    if (up) Increment(digits);
  }
  const auto least = static_cast<std::size_t>(decimales) + 1;
  if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
  return digits;
}

std::string WithPoint(std::string digits, std::int32_t decimales) {
  if (decimales > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimales), 1, '.');
  return digits;
}

std::int16_t Width(const Digitos& digitos) {
  const int width = digitos.enteros + digitos.decimales + (digitos.incluir_punto == 1 ? 1 : 0);
  if (width > std::numeric_limits<std::int16_t>::max() ||
      width < std::numeric_limits<std::int16_t>::min()) {
    throw Desbordamiento();
  }
  return static_cast<std::int16_t>(width);
}

}  // namespace

std::string DecimalFijo(double value, std::int32_t decimales) {
  if (decimales < 0) throw LlamadaNoValida();
  return WithPoint(ScaledDigits(value, decimales, Halves::kAwayFromZero), decimales);
}

std::string FormatearNumero(double value, const Digitos& digitos) {
  const auto width = Width(digitos);
  auto digits = DecimalFijo(value, digitos.decimales);
  if (digitos.incluir_punto != 1) std::erase(digits, '.');
  const auto pad = width - static_cast<std::int64_t>(digits.size());
  if (pad < 0) throw LlamadaNoValida();
  digits.insert(0, static_cast<std::size_t>(pad), '0');
  // Kept as is: the sign widens the field by one; the printer has always been sent it so.
  if (value < 0) digits.insert(0, 1, '-');
  return digits;
}

double RedondearCentesimos(double value) {
  const auto digits = WithPoint(ScaledDigits(value, 2, Halves::kToEven), 2);
  double rounded = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
  return value < 0 ? -rounded : rounded;
}

std::string DigitosDeCentesimos(double value) {
  auto digits = DecimalFijo(value, 2);
  std::erase(digits, '.');
  return value < 0 ? digits.insert(0, 1, '-') : digits;
}

}  // namespace kestra
