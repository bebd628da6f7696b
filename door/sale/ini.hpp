// A printer's Fiscal.ini, as far as the door has to know it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace puerta {

// The value of a key of [Epson_Fiscal], as the library reads it: the first one counts, case does not, blanks and a pair
// of quotes around it are dropped. Nothing when the key is missing.
std::optional<std::string> IniValue(std::string_view ini, std::string_view key);

// As a number; `otherwise` when it is missing or is none.
int IniNumber(std::string_view ini, std::string_view key, int otherwise);

}  // namespace puerta
