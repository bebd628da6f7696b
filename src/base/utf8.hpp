#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kestra {

// How a UTF-8 character begins. Its second byte has bounds of its own, by which no character has two
// forms and none is half of another code's pair; all further ones lie between 0x80 and 0xBF.
struct Utf8Lead {
  unsigned char first;
  unsigned char last;
  std::size_t bytes;
  unsigned char least;  // second byte
  unsigned char most;
};
constexpr std::array kUtf8Leads = {
    Utf8Lead{0x00, 0x7F, 1, 0x80, 0xBF}, Utf8Lead{0xC2, 0xDF, 2, 0x80, 0xBF},
    Utf8Lead{0xE0, 0xE0, 3, 0xA0, 0xBF}, Utf8Lead{0xE1, 0xEC, 3, 0x80, 0xBF},
    Utf8Lead{0xED, 0xED, 3, 0x80, 0x9F}, Utf8Lead{0xEE, 0xEF, 3, 0x80, 0xBF},
    Utf8Lead{0xF0, 0xF0, 4, 0x90, 0xBF}, Utf8Lead{0xF1, 0xF3, 4, 0x80, 0xBF},
    Utf8Lead{0xF4, 0xF4, 4, 0x80, 0x8F},
};

// Bytes that a character with this first one has; 0: none begins with it.
constexpr std::size_t Utf8BytesAfter(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  for (const auto& row : kUtf8Leads) {
    if (byte >= row.first && byte <= row.last) return row.bytes;
  }
  return 0;
}

// May `next` stand at that place, counted from 0, of a character that begins with `lead`?
constexpr bool Utf8Continues(char lead, std::size_t place, char next) {
  const auto byte = static_cast<unsigned char>(next);
  if (place > 1) return (byte & 0xC0u) == 0x80u;
  const auto first = static_cast<unsigned char>(lead);
  const auto* row = kUtf8Leads.begin();
  while (first > row->last) ++row;
  return byte >= row->least && byte <= row->most;
}

// Bytes of the well-formed character at the front of the text; 0: there is none.
constexpr std::size_t Utf8Front(std::string_view text) {
  if (text.empty()) return 0;
  const auto bytes = Utf8BytesAfter(text.front());
  if (bytes > text.size()) return 0;
  for (std::size_t place = 1; place < bytes; ++place) {
    if (!Utf8Continues(text.front(), place, text[place])) return 0;
  }
  return bytes;
}

// The character in the well-formed bytes of one.
constexpr char32_t Utf8Character(std::string_view bytes) {
  char32_t code = static_cast<unsigned char>(bytes.front());
  if (bytes.size() > 1) code &= 0x7Fu >> bytes.size();
  for (const char byte : bytes.substr(1)) {
    code = (code << 6) | (static_cast<unsigned char>(byte) & 0x3Fu);
  }
  return code;
}

// The front of the text that fits so many bytes, without a part of a character behind it.
constexpr std::string_view CutUtf8(std::string_view text, std::size_t size) {
  if (text.size() <= size) return text;
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0u) == 0x80u) --size;
  return text.substr(0, size);
}

}  // namespace kestra
