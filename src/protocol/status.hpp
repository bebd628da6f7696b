#pragma once

#include <array>
#include <string_view>

#include "base/boolean.hpp"

namespace kestra {

// The four flags of a hexadecimal digit in either case, lowest weight first. Throws Failure for
// anything else, the empty text too.
std::array<Boolean, 4> ValorDigitoHex(std::string_view digit);

// Sets the flags of a status word of four hexadecimal digits, from its last digit to its first; a
// digit that is none throws Failure and leaves the flags behind it as they were.
void DecodePrinter(std::string_view word, Flags& flags);
void DecodeFiscal(std::string_view word, Flags& flags);

}  // namespace kestra
