#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace kestra {

// Windows and callbacks take a text up to its first zero byte: those inside become blanks.
inline std::string ShownText(std::string_view text) {
  std::string shown(text);
  std::replace(shown.begin(), shown.end(), '\0', ' ');
  return shown;
}

}  // namespace kestra
