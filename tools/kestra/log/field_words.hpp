#pragma once

#include <string>
#include <string_view>

#include "commands/commands.hpp"
#include "machine/settings.hpp"

namespace kestra::tool {

// What went over the line, for a reader: "1.234,50" for "000123450". Empty for what is its own word.

// A command's field, with as many digits as the printer has for its kind.
std::string FieldWords(std::string_view raw, const impresora::FieldRow& row,
                       const impresora::FieldDigits& digits);

// A field of an answer, of which only the name is known.
std::string DataWords(std::string_view raw, std::string_view name);

// At least one, and nothing else.
bool OnlyDigits(std::string_view text);

}  // namespace kestra::tool
