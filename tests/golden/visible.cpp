#include "golden/visible.hpp"

#include <array>
#include <charconv>
#include <cstdint>
#include <stdexcept>

namespace kestra::golden {
namespace {

struct Token {
  unsigned char byte;
  std::string_view name;
};

constexpr std::array kTokens{
    Token{0, "<nul>"}, Token{2, "<stx>"},   Token{3, "<etx>"},
    Token{6, "<ack>"}, Token{13, "<cr>"},   Token{18, "<dc2>"},
    Token{28, "<fs>"}, Token{127, "<del>"}, Token{' ', "<sp>"},
};

// Code points of the windows-1252 bytes 128 to 159; 0 where the byte stands for nothing.
constexpr std::array<std::uint16_t, 32> kHigh{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr unsigned kNoBreakSpace = 0xA0;
constexpr unsigned kSoftHyphen = 0xAD;

// The code point shown for a byte of the upper half; 0 when the byte is better shown as a token.
std::uint32_t CodePoint(unsigned byte) {
  if (byte == kNoBreakSpace || byte == kSoftHyphen) return 0;
  return byte < 160 ? kHigh[byte - 128] : byte;
}

char Byte(std::uint32_t value) {
  return static_cast<char>(static_cast<unsigned char>(value));
}

std::string Utf8(std::uint32_t code) {
  if (code < 0x800) return {Byte(0xC0U | code >> 6U), Byte(0x80U | (code & 0x3FU))};
  return {Byte(0xE0U | code >> 12U), Byte(0x80U | (code >> 6U & 0x3FU)),
          Byte(0x80U | (code & 0x3FU))};
}

std::string HexToken(unsigned byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  return {'<', digits[byte >> 4U], digits[byte & 15U], '>'};
}

std::string VisibleByte(unsigned byte) {
  for (const Token& token : kTokens) {
    if (token.byte == byte && byte != ' ') return std::string(token.name);
  }
  if (byte < 32 || byte == '<') return HexToken(byte);
  if (byte < 128) return {Byte(byte)};
  const std::uint32_t code = CodePoint(byte);
  return code == 0 ? HexToken(byte) : Utf8(code);
}

char TokenByte(std::string_view token) {
  for (const Token& known : kTokens) {
    if (known.name == token) return Byte(known.byte);
  }
  unsigned value = 0;
  if (token.size() == 4) {
    const auto [end, error] = std::from_chars(token.data() + 1, token.data() + 3, value, 16);
    if (error == std::errc() && end == token.data() + 3) return Byte(value);
  }
  throw std::invalid_argument("unknown token " + std::string(token));
}

std::uint32_t ContinuationBits(std::string_view text, std::size_t at) {
  if (at >= text.size()) throw std::invalid_argument("broken UTF-8");
  return static_cast<unsigned char>(text[at]) & 0x3FU;
}

// Takes one UTF-8 letter from the front of the text.
std::uint32_t TakeCodePoint(std::string_view& text) {
  const unsigned lead = static_cast<unsigned char>(text[0]);
  std::uint32_t code = 0;
  if (lead < 0xE0) {
    code = (lead & 0x1FU) << 6U | ContinuationBits(text, 1);
    text.remove_prefix(2);
  } else {
    code = (lead & 0x0FU) << 12U | ContinuationBits(text, 1) << 6U | ContinuationBits(text, 2);
    text.remove_prefix(3);
  }
  return code;
}

char FromCodePoint(std::uint32_t code) {
  for (unsigned byte = 128; byte < 256; ++byte) {
    if (CodePoint(byte) == code) return Byte(byte);
  }
  throw std::invalid_argument("a letter that windows-1252 does not have");
}

}  // namespace

std::string Visible(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) text += VisibleByte(static_cast<unsigned char>(c));
  return text;
}

std::string FromVisible(std::string_view text, Letters letters) {
  std::string bytes;
  while (!text.empty()) {
    const unsigned lead = static_cast<unsigned char>(text[0]);
    if (text[0] == '<') {
      const auto end = text.find('>');
      if (end == std::string_view::npos) throw std::invalid_argument("a token without its end");
      bytes += TokenByte(text.substr(0, end + 1));
      text.remove_prefix(end + 1);
    } else if (lead >= 0x80 && letters == Letters::kAnsi) {
      bytes += FromCodePoint(TakeCodePoint(text));
    } else {
      bytes += text[0];
      text.remove_prefix(1);
    }
  }
  return bytes;
}

}  // namespace kestra::golden
