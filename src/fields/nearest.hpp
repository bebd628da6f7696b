#pragma once

#include <string>
#include <string_view>

namespace kestra {

// Letters that the printer takes and that are nearest to a character that it does not: "e" for é, "EUR"
// for the sign; none for what is a part of the letter before it; "-" for what resembles nothing.
std::string_view NearestLetters(char32_t character);

// A windows-1252 text with the nearest letters in the place of each character that the printer does not take.
std::string Transliterate(std::string_view text);

}  // namespace kestra
