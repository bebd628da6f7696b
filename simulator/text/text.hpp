#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace impresora {

// The host's bytes are windows-1252; whatever is not a printable character becomes a blank.
std::string Utf8FromHost(std::string_view bytes);

// Whether the printer's own table of characters has that byte: plain ASCII, n with tilde, and those
// that steer how it prints. What else a host sends is printed all the same, as windows-1252, by a
// printer that is not strict.
bool IsOnDevice(char byte);

// Columns that a UTF-8 text takes, and its beginning cut to that many columns.
std::size_t Columns(std::string_view utf8);
std::string_view CutToColumns(std::string_view utf8, std::size_t columns);

std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

}  // namespace impresora
