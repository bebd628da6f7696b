#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

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
