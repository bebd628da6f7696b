#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kestra {

// A text literal written in the source's UTF-8 and turned into windows-1252 by the compiler: the
// printer, the log and the host speak that. Only the letters that Spanish needs (up to U+00FF).
template <std::size_t N>
struct AnsiLiteral {
  std::array<char, N> bytes{};
  std::size_t length = 0;

  // NOLINTNEXTLINE(google-explicit-constructor): a literal converts by itself.
  consteval AnsiLiteral(const char (&utf8)[N]) {
    for (std::size_t i = 0; i + 1 < N; ++i) {
      const auto lead = static_cast<unsigned char>(utf8[i]);
      unsigned code = lead;
      if (lead >= 0x80) {
        if (lead != 0xC2 && lead != 0xC3) throw "not a letter of windows-1252";
        code = ((lead & 0x03u) << 6) | (static_cast<unsigned char>(utf8[++i]) & 0x3Fu);
      }
      bytes[length++] = static_cast<char>(code);
    }
  }
};

template <AnsiLiteral Literal>
consteval std::string_view operator""_ansi() {
  return {Literal.bytes.data(), Literal.length};
}

}  // namespace kestra
