#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "base/boolean.hpp"
#include "dialogs/conditions.hpp"

namespace kestra {

using Flags = std::array<Boolean, 16>;

// The four flags of a hexadecimal digit in either case, lowest weight first. Throws Failure for
// anything else, the empty text too.
std::array<Boolean, 4> ValorDigitoHex(std::string_view digit);

// Sets the flags of a status word of four hexadecimal digits, from its last digit to its first; a
// digit that is none throws Failure and leaves the flags behind it as they were.
void DecodePrinter(std::string_view word, Flags& flags);
void DecodeFiscal(std::string_view word, Flags& flags);

bool IsLit(const Condition& condition, const Flags& printer, const Flags& fiscal);

// True when a condition that fails a command is set.
bool FailsCommand(const Flags& printer, const Flags& fiscal);

// The messages that the status query shows for these flags, in their order.
std::vector<std::string_view> StatusMessages(const Flags& printer, const Flags& fiscal);

}  // namespace kestra
