#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "base/code_page.hpp"

namespace kestra {

// UTF-8 to windows-1252, with '?' for each character that it lacks and each byte that is not UTF-8.
std::string AnsiFromUtf8(std::string_view utf8);

// Bytes of the UTF-8 character at the front of `text`; 1 for a byte that begins none.
std::size_t Utf8Length(std::string_view text);

// Windows and callbacks take a text up to its first zero byte: those inside become blanks.
inline std::string ShownText(std::string_view text) {
  std::string shown(text);
  std::replace(shown.begin(), shown.end(), '\0', ' ');
  return shown;
}

// Case as file names and keys have it: the 26 letters, whatever the locale.
constexpr char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool EqualWithoutCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

}  // namespace kestra
