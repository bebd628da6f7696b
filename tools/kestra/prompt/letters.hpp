#pragma once

#include <algorithm>
#include <string_view>

namespace kestra::tool {

// Names as people type them: in either case. All are of plain letters.

constexpr bool SameLetter(char one, char other) {
  const auto lower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return lower(one) == lower(other);
}

constexpr bool SameLetters(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), SameLetter);
}

constexpr bool BeginsWith(std::string_view text, std::string_view beginning) {
  return SameLetters(text.substr(0, beginning.size()), beginning);
}

}  // namespace kestra::tool
