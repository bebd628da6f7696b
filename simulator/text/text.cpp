#include "text/text.hpp"

#include <array>
#include <cstdint>

namespace impresora {
namespace {

// What windows-1252 puts at 0x80..0x9F; 0 where it puts nothing.
constexpr std::array<std::uint16_t, 32> kHighControls{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

unsigned CodePoint(char c) {
  const unsigned code = static_cast<std::uint8_t>(c);
  if (code < 0x20 || code == 0x7F) return ' ';
  if (code < 0x80 || code >= 0xA0) return code;
  const unsigned point = kHighControls.at(code - 0x80U);
  return point == 0 ? ' ' : point;
}

void AppendUtf8(std::string& text, unsigned point) {
  if (point < 0x80) {
    text += static_cast<char>(point);
  } else if (point < 0x800) {
    text += static_cast<char>(0xC0U | (point >> 6U));
    text += static_cast<char>(0x80U | (point & 0x3FU));
  } else {
    text += static_cast<char>(0xE0U | (point >> 12U));
    text += static_cast<char>(0x80U | ((point >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (point & 0x3FU));
  }
}

bool StartsCharacter(char c) {
  return (static_cast<std::uint8_t>(c) & 0xC0U) != 0x80U;
}

}  // namespace

std::string Utf8FromHost(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) AppendUtf8(text, CodePoint(c));
  return text;
}

bool IsOnDevice(char byte) {
  constexpr std::string_view kBeyondAscii = "\xF0\xF1\xF2\xF4\xF8";
  const bool plain = byte >= 0x20 && byte < 0x7F;
  return plain || kBeyondAscii.find(byte) != std::string_view::npos;
}

std::size_t Columns(std::string_view utf8) {
  std::size_t count = 0;
  for (const char c : utf8) count += StartsCharacter(c) ? 1 : 0;
  return count;
}

std::string_view CutToColumns(std::string_view utf8, std::size_t columns) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (StartsCharacter(utf8[i]) && count++ == columns) return utf8.substr(0, i);
  }
  return utf8;
}

std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : TrimRight(text.substr(first));
}

}  // namespace impresora
