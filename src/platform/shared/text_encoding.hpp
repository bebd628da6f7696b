#pragma once

#include <string>
#include <string_view>

namespace kestra {

// Windows-1252 to UTF-8. Every byte has a meaning: the five that the code page leaves open stand
// for the control characters of the same number.
std::string Utf8FromAnsi(std::string_view ansi);

// UTF-8 to windows-1252, with '?' for each character that it lacks and each byte that is not UTF-8.
std::string AnsiFromUtf8(std::string_view utf8);

// Bytes of the UTF-8 character at the front of `text`; 1 for a byte that begins none.
std::size_t Utf8Length(std::string_view text);

}  // namespace kestra
