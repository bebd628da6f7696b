// Numbers and texts as the printer's fields, with digit counts and lengths that no printer has.
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "base/failure.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "fuzz/input.hpp"
#include "operation/host_buffer.hpp"

namespace kestra {
namespace {

using fuzz::Input;
using fuzz::Require;

constexpr std::string_view kDigits = "0123456789";

// The value, or the number of the failure instead of one.
template <typename Conversion>
auto Try(Conversion conversion, std::int32_t& failure) -> std::optional<decltype(conversion())> {
  failure = 0;
  try {
    return conversion();
  } catch (const Failure& caught) {
    failure = caught.Number();
    return std::nullopt;
  }
}

bool Near(double a, double b, double tolerance) {
  return std::fabs(a - b) <= tolerance + std::fabs(b) * 1e-14;
}

std::string Without(std::string text, char unwanted) {
  std::erase(text, unwanted);
  return text;
}

bool AllDigits(std::string_view text) {
  return text.find_first_not_of(kDigits) == std::string_view::npos;
}

double AnyValue(Input& input) {
  switch (input.Below(4)) {
    case 0:
      return input.Double();
    case 1:
      return input.Int16() / 1000.0;
    case 2:
      return static_cast<double>(input.Int32()) / 100;
    default:
      return static_cast<double>(input.Integer<std::uint64_t>()) / 1000;
  }
}

// A few digits as a rule; any count that fits the setting now and then.
std::int16_t AnyCount(Input& input) {
  const auto kind = input.Byte();
  return kind < 250 ? static_cast<std::int16_t>(kind % 20) : input.Int16();
}

// The field's own text must say the value that it was given, as exactly as its decimals can.
void CheckWritten(const std::string& field, double value, const Digits& digits) {
  const bool point = digits.include_point == 1;
  const int width = digits.integers + digits.decimals + (point ? 1 : 0);
  const std::string_view text = std::string_view(field).substr(value < 0 ? 1 : 0);
  Require((value < 0) == (field[0] == '-') || width == 0, "a sign for what is below zero");
  Require(static_cast<int>(text.size()) == width, "as wide as it was set up");
  const auto bare = Without(std::string(text), '.');
  Require(AllDigits(bare), "nothing but digits");
  const bool has_point = bare.size() != text.size();
  Require(has_point == (point && digits.decimals > 0), "a point when it is wanted");
  if (digits.decimals > 20 || std::fabs(value) >= 1e15) return;
  const double unit = std::pow(10.0, -digits.decimals);
  const double said = bare.empty() ? 0 : ToRealNumber(bare) * unit;
  Require(Near(said, std::fabs(value), unit * 0.5000001), "it is the number that was meant");
}

void CheckNumber(Input& input) {
  const double value = AnyValue(input);
  const Digits digits{AnyCount(input), AnyCount(input), static_cast<std::int16_t>(input.Below(3))};
  std::int32_t failure = 0;
  const auto field = Try([&] { return FormatearNumero(value, digits); }, failure);
  const bool ample = std::isfinite(value) && digits.decimals >= 0 && digits.decimals < 20 &&
                     digits.integers >= 2 && digits.integers < 400 &&
                     std::fabs(value) < std::pow(10.0, digits.integers - 1);
  Require(field || !ample, "what fits is written");
  Require(field || failure == 5 || failure == 6, "what does not is refused in known words");
  if (field) CheckWritten(*field, value, digits);
}

void CheckHundredths(Input& input) {
  const double value = AnyValue(input);
  std::int32_t failure = 0;
  const auto rounded = Try([&] { return RoundToHundredths(value); }, failure);
  const auto text = Try([&] { return HundredthsDigits(value); }, failure);
  Require(rounded.has_value() == std::isfinite(value), "any number has hundredths");
  Require(text.has_value() == std::isfinite(value), "and they can be written");
  if (!rounded) return;
  Require(Near(*rounded, value, 0.0050001), "to the nearest");
  Require(RoundToHundredths(*rounded) == *rounded, "and what is round stays");
  if (std::fabs(value) < 1e12) {
    Require(Near(ToRealNumber(*text) / 100, value, 0.0050001), "two decimals without a point");
  }
}

// Blanks, a sign, digits, blanks.
bool IsNumber(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return false;
  text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  if (text[0] == '+' || text[0] == '-') text.remove_prefix(1);
  return !text.empty() && AllDigits(text);
}

template <typename T>
void CheckWhole(std::string_view text, T (*convert)(std::string_view)) {
  std::int32_t failure = 0;
  const auto number = Try([&] { return convert(text); }, failure);
  if (!IsNumber(text)) return Require(failure == 13, "what is no number is a type mismatch");
  const auto value = std::strtold(std::string(text).c_str(), nullptr);
  const bool fits = value >= static_cast<long double>(std::numeric_limits<T>::min()) &&
                    value <= static_cast<long double>(std::numeric_limits<T>::max());
  Require(number.has_value() == fits, "what fits is read");
  Require(number ? static_cast<long double>(*number) == value : failure == 6, "as it was written");
}

void CheckRealText(std::string_view text) {
  std::int32_t failure = 0;
  const auto number = Try([&] { return ToRealNumber(text); }, failure);
  if (!number) return Require(failure == 13 || failure == 6, "refused in known words");
  const double value = std::strtod(std::string(text).c_str(), nullptr);
  Require(std::isfinite(*number), "a number");
  Require(Near(*number, value, 1e-300) || text.size() > 300, "the one that was written");
}

void CheckNumberText(Input& input) {
  const auto digits = input.Below(40);
  const auto text = input.Rest();
  Require(IsNumber(text) == IsNumber(text), "a number is known for one");
  CheckWhole<std::int32_t>(text, ToNumber);
  CheckWhole<std::int16_t>(text, ToShortNumber);
  CheckRealText(text);
  const auto filled = PaddedInteger(text, digits);
  const auto bare = std::string_view(filled).substr(filled.starts_with('-') ? 1 : 0);
  Require(AllDigits(bare) && bare.size() >= digits, "filled with zeros");
}

void CheckText(Input& input) {
  const auto length = input.Flag() ? input.Int32() % 40'000 : input.Byte();
  const std::string text(input.Rest());
  std::int32_t failure = 0;
  const auto field = Try([&] { return AjustarTexto(text, length); }, failure);
  const auto trimmed = TrimBlanks(text);
  if (length < -32'768 || length > 32'767) {
    Require(failure == 6, "no field is so long");
  } else if (trimmed.empty()) {
    Require(field == std::string(1, kEmptyField), "an empty one says so");
  } else if (length < 0) {
    Require(failure == 5, "nor has one less than nothing");
  } else {
    Require(field && field->size() == static_cast<std::size_t>(length), "exactly so long");
    Require(FixedWidth(trimmed, field->size()) == *field, "with the text at its front");
  }
  const auto clean = LimpiarCaracteres(text);
  Require(clean.size() == text.size() && LimpiarCaracteres(clean) == clean, "cleaned once for all");
  Require(PadLeft(text, input.Below(64), '0').ends_with(text), "filled on the left");
}

// The host's memory ends where it says; a byte beyond is somebody else's.
void CheckHostBuffers(Input& input) {
  const auto size = static_cast<std::int32_t>(input.Below(130)) - 2;
  const std::string text(input.Rest());
  const auto own = static_cast<std::size_t>(size < 0 ? 0 : size);
  const auto buffer = std::make_unique<char[]>(own);
  std::fill_n(buffer.get(), own, '.');
  const auto count = DevolverCadena(TextSettings{}, buffer.get(), text, size);
  Require(count <= size || count == 0, "no more than there is room for");
  const std::string_view left(buffer.get(), own);
  const auto copied = static_cast<std::size_t>(count < 0 ? 0 : count);
  Require(left.substr(0, copied) == std::string_view(text).substr(0, copied), "the text's front");
  Require(left.substr(copied).find_first_not_of('.') == std::string_view::npos,
          "nothing behind it");
  Require(LeerCadena(TextSettings{}, buffer.get(), size) == left, "read back as it lies there");
  Require(ReadTerminatedText(TextSettings{}, text.c_str()) == text.c_str(), "through to the zero");
}

}  // namespace
}  // namespace kestra

FUZZ_TARGET(input) {
  static constexpr std::array kChecks{&kestra::CheckNumber, &kestra::CheckHundredths,
                                      &kestra::CheckNumberText, &kestra::CheckText,
                                      &kestra::CheckHostBuffers};
  input.Pick(kChecks)(input);
}
