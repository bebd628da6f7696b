#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// The digits a numeric field of the printer has.
struct Digits {
  std::int16_t integers = 0;
  std::int16_t decimals = 0;
  std::int16_t include_point = 0;  // 1: the decimal point is part of the field
};

// A number as a field of fixed width, filled with zeros. A negative one is a character wider.
// Throws Failure when it does not fit.
std::string FormatearNumero(double value, const Digits& shape);

// A digit count of 0..32767 decimals after a point, whatever the locale: |2.675| with 2 is "2.68".
// Halves go away from zero, judged on 15 significant digits. Throws Failure for what is no number.
std::string FixedDecimal(double value, std::int32_t decimals);

// Hundredths as a whole number, halves to the even one, judged on 15 significant digits.
double RoundToHundredths(double value);

// "005" for 0.05: two decimals without any separator.
std::string HundredthsDigits(double value);

// Optional blanks, optional sign, decimal digits, optional blanks.
bool IsNumber(std::string_view text);

// Throw Failure: type mismatch for what is no number, overflow for one out of range.
std::int32_t ToNumber(std::string_view text);
std::int16_t ToShortNumber(std::string_view text);

// Any count of digits, with a point or without.
double ToRealNumber(std::string_view text);

// A number as a whole one of at least so many digits; a longer one keeps all of its digits. What is no
// number becomes zeros.
std::string PaddedInteger(std::string_view text, std::size_t digits);

}  // namespace kestra
