// Characters of a text, as the printer's.
#pragma once

#include <string>
#include <string_view>

namespace puerta {

// The first character of a UTF-8 text that does not reach the paper, as it is written; empty when all do. `respells`: what
// the printer does not have goes out as what comes near.
std::string ForeignLetter(std::string_view text, bool respells);

// How many of the printer's characters that makes: "½" is three where it is respelt.
int PrintedLength(std::string_view text);

// Whether there is nothing but blanks in it.
bool IsBlank(std::string_view text);

}  // namespace puerta
