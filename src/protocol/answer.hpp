#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/boolean.hpp"

namespace kestra {

// An answer carries two status words and up to thirteen data fields.
constexpr std::size_t kAnswerFields = 15;
using Fields = std::array<std::string, kAnswerFields>;

// What stands for an answer where none came.
constexpr std::string_view kCommunicationError =
    "\x02"
    "0\x1C"
    "0\x1C"
    "0\x1C"
    "ERROR DE COMUNICACION\x03";

// Cuts the next field off the front of `answers`: what stands between a separator and the next
// one (or the end byte). Empty, with nothing cut, when there is no end.
std::string SiguienteCampo(std::string& answers);

// All fields in order; `answers` is left as the last cut left it. Missing ones are empty.
Fields CutFields(std::string& answers);

// The operator's listing: every field under its label.
std::string ListingText(const Fields& fields);

// The four flags of a hexadecimal digit in either case, lowest weight first. Throws Failure for
// anything else, the empty text too.
std::array<Boolean, 4> ValorDigitoHex(std::string_view digit);

// Sets the flags of a status word of four hexadecimal digits, from its last digit to its first; a
// digit that is none throws Failure and leaves the flags behind it as they were.
void DecodePrinter(std::string_view word, Flags& flags);
void DecodeFiscal(std::string_view word, Flags& flags);

}  // namespace kestra
