#include "fields/integer_text.hpp"

#include <charconv>
#include <limits>

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
  const auto point = unsigned_part.find('.');
  const auto whole = unsigned_part.substr(0, point);
  const auto fraction =
      point == std::string_view::npos ? std::string_view{} : unsigned_part.substr(point + 1);
  if ((whole.empty() && fraction.empty()) || !AllDigits(whole) || !AllDigits(fraction)) {
    throw TipoNoCoincide();
  }
  double value = 0;
  const auto text = WithoutPlus(number);
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc{}) {
    throw Desbordamiento();
  }
  return value;
}

}  // namespace kestra
