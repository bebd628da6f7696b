#include "fields/integer_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "frame/failure.hpp"

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
  if (!EsNumero(text)) throw TipoNoCoincide();
  const auto number = WithoutPlus(Trim(text));
  T value{};
  if (std::from_chars(number.data(), number.data() + number.size(), value).ec != std::errc{}) {
    throw Desbordamiento();
  }
  return value;
}

}  // namespace

bool EsNumero(std::string_view texto) {
  const auto digits = WithoutSign(Trim(texto));
  return !digits.empty() && AllDigits(digits);
}

std::int32_t ANumero(std::string_view texto) {
  return Convert<std::int32_t>(texto);
}

std::int16_t ANumeroCorto(std::string_view texto) {
  return Convert<std::int16_t>(texto);
}

double ANumeroReal(std::string_view texto) {
  const auto number = Trim(texto);
  const auto unsigned_part = WithoutSign(number);
  const auto point = std::min(unsigned_part.find('.'), unsigned_part.size());
  const auto whole = unsigned_part.substr(0, point);
  const auto fraction = unsigned_part.substr(std::min(point + 1, unsigned_part.size()));
  if ((whole.empty() && fraction.empty()) || !AllDigits(whole) || !AllDigits(fraction)) {
    throw TipoNoCoincide();
  }
  // Both are exact up to fifteen digits, and their quotient is then the nearest number there is.
  double digits = 0;
  for (const auto part : {whole, fraction}) {
    for (const char digit : part) digits = digits * 10 + (digit - '0');
  }
  const double value = digits / std::pow(10.0, static_cast<double>(fraction.size()));
  if (!std::isfinite(value)) throw Desbordamiento();
  return number.starts_with('-') ? -value : value;
}

std::string EnteroRelleno(std::string_view texto, std::size_t digitos) {
  const auto numero = Trim(texto);
  std::string entero(digitos, '0');
  try {
    // Digits as they stand: a counter may have more of them than a double holds.
    entero =
        EsNumero(numero) ? std::string(WithoutSign(numero)) : DecimalFijo(ANumeroReal(numero), 0);
  } catch (const Falla&) {
    return entero;
  }
  entero.erase(0, std::min(entero.find_first_not_of('0'), entero.size()));
  const bool negativo = numero.starts_with('-') && !entero.empty();
  entero = RellenarIzquierda(entero, digitos, '0');
  return negativo ? entero.insert(0, 1, '-') : entero;
}

}  // namespace kestra
