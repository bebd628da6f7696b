#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace impresora {

// Names of files are UTF-8 everywhere in this program, whatever the system makes of single bytes.
inline std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

inline std::string NameOf(const std::filesystem::path& path) {
  const std::u8string name = path.u8string();
  return {name.begin(), name.end()};
}

}  // namespace impresora
