#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestra {

// Windows-1252. Every byte has a meaning: the five that the code page leaves open stand for the control
// characters of the same number.

// What the bytes 0x80 to 0x9F stand for; all others stand for the character of their own number.
constexpr char32_t kFirstOfCodePage = 0x80;
constexpr std::array<char16_t, 32> kCodePage = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool InCodePage(char32_t code) {
  return code >= kFirstOfCodePage && code < kFirstOfCodePage + kCodePage.size();
}

constexpr char32_t CharacterOf(char byte) {
  const char32_t value = static_cast<unsigned char>(byte);
  return InCodePage(value) ? kCodePage[value - kFirstOfCodePage] : value;
}

// Nothing for a character that the code page lacks.
constexpr std::optional<char> ByteOf(char32_t character) {
  if (character <= 0xFF && !InCodePage(character)) return static_cast<char>(character);
  const auto* const found = std::find(kCodePage.begin(), kCodePage.end(), character);
  if (found == kCodePage.end()) return std::nullopt;
  return static_cast<char>(kFirstOfCodePage + static_cast<char32_t>(found - kCodePage.begin()));
}

inline std::string Utf8FromAnsi(std::string_view ansi) {
  std::string utf8;
  utf8.reserve(ansi.size() + ansi.size() / 8);
  for (const char byte : ansi) {
    const char32_t code = CharacterOf(byte);
    if (code < 0x80) {
      utf8 += static_cast<char>(code);
    } else if (code < 0x800) {
      utf8 += {static_cast<char>(0xC0u | code >> 6), static_cast<char>(0x80u | (code & 0x3Fu))};
    } else {
      utf8 +=
          {static_cast<char>(0xE0u | code >> 12), static_cast<char>(0x80u | (code >> 6 & 0x3Fu)),
           static_cast<char>(0x80u | (code & 0x3Fu))};
    }
  }
  return utf8;
}

}  // namespace kestra
