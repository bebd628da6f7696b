#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// What the printer reads as an empty field.
constexpr char kEmptyField = '\x7F';
constexpr std::string_view kNoText(&kEmptyField, 1);

// What stands for a character that the printer does not take.
constexpr char kStandIn = '-';

// Accented letters the printer has, at their places in its own table.
constexpr std::string_view kAcceptedLetters = "\xF0\xF1\xF2\xF4\xF8";

constexpr bool PrinterAccepts(char character) {
  const auto code = static_cast<unsigned char>(character);
  return (code >= 32 && code <= 127) || kAcceptedLetters.find(character) != std::string_view::npos;
}

// Without leading and trailing blanks (blanks only, no other white space).
std::string_view TrimBlanks(std::string_view text);

// Cut or padded with blanks to exactly `length` characters.
std::string FixedWidth(std::string_view text, std::size_t length);

// Filled with `filler` on the left up to `length`; a longer text stays as it is.
std::string PadLeft(std::string_view text, std::size_t length, char filler);

// Replaces the characters that the printer does not accept by kStandIn.
std::string LimpiarCaracteres(std::string text);

// Fits a text to a field: trimmed, then padded or cut; an empty one becomes kEmptyField. Throws
// Failure for a length that no field has.
std::string AjustarTexto(std::string_view text, std::int32_t length);

}  // namespace kestra
