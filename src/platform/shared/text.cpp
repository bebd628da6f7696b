#include "platform/shared/text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestra {

namespace {

// What the bytes 0x80 to 0x9F stand for; all others stand for the character of their own number.
constexpr unsigned kFirstOfTable = 0x80;
constexpr std::array<char16_t, 32> kTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool InTable(unsigned code) {
  return code >= kFirstOfTable && code < kFirstOfTable + kTable.size();
}

unsigned CodeOf(char byte) {
  const unsigned value = static_cast<unsigned char>(byte);
  return InTable(value) ? kTable[value - kFirstOfTable] : value;
}

char ByteOf(unsigned code) {
  if (code <= 0xFF && !InTable(code)) return static_cast<char>(code);
  const auto* const found = std::find(kTable.begin(), kTable.end(), code);
  if (found == kTable.end()) return '?';
  return static_cast<char>(kFirstOfTable + static_cast<unsigned>(found - kTable.begin()));
}

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

// Bytes that a character with this first byte has; 0 when no character begins with it.
std::size_t LengthFromLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

// The character in the well-formed bytes of one.
unsigned Decode(std::string_view bytes) {
  unsigned code = static_cast<unsigned char>(bytes.front());
  if (bytes.size() > 1) code &= 0x7Fu >> bytes.size();
  for (const char byte : bytes.substr(1)) {
    code = (code << 6) | (static_cast<unsigned char>(byte) & 0x3Fu);
  }
  return code;
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  const std::size_t length = LengthFromLead(static_cast<unsigned char>(text.front()));
  if (length == 0 || length > text.size()) return 1;
  const bool whole = std::all_of(
      text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), IsContinuation);
  return whole ? length : 1;
}

std::string Utf8FromAnsi(std::string_view ansi) {
  std::string utf8;
  utf8.reserve(ansi.size() + ansi.size() / 8);
  for (const char byte : ansi) {
    const unsigned code = CodeOf(byte);
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

std::string AnsiFromUtf8(std::string_view utf8) {
  std::string ansi;
  ansi.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::string_view character = utf8.substr(0, Utf8Length(utf8));
    const bool stray = character.size() == 1 && static_cast<unsigned char>(character[0]) >= 0x80;
    ansi += stray ? '?' : ByteOf(Decode(character));
    utf8.remove_prefix(character.size());
  }
  return ansi;
}

}  // namespace kestra
