#include "text/utf8.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

namespace impresora {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Lead {
  std::uint8_t mask, bits;
  std::size_t length;
  char32_t least;  // a smaller character has a shorter form
};

constexpr std::array<Lead, 4> kLeads{{
    {0x80, 0x00, 1, 0x20},
    {0xE0, 0xC0, 2, 0xA0},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

const Lead* FindLead(std::uint8_t byte) {
  for (const Lead& lead : kLeads) {
    if ((byte & lead.mask) == lead.bits) return &lead;
  }
  return nullptr;
}

bool IsCharacter(char32_t c, const Lead& lead) {
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  return c >= lead.least && c != 0x7F && c < 0xFFFE && !surrogate;
}

// Takes one character off the front; at least one byte goes.
char32_t TakeCharacter(std::string_view& bytes) {
  const auto at = [&bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  const Lead* lead = FindLead(at(0));
  std::size_t length = 1;
  char32_t c = kReplacement;
  if (lead != nullptr && bytes.size() >= lead->length) {
    c = at(0) & static_cast<std::uint8_t>(~lead->mask);
    while (length < lead->length && (at(length) & 0xC0U) == 0x80U) {
      c = (c << 6U) | (at(length++) & 0x3FU);
    }
    if (length < lead->length || !IsCharacter(c, *lead)) c = kReplacement;
  }
  bytes.remove_prefix(length);
  return c;
}

void Append(std::string& text, char32_t c) {
  const auto tail = [&text, c](unsigned shift) {
    text += static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
  };
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0U | (c >> 6U));
    tail(0);
  } else {
    text += static_cast<char>(0xE0U | (c >> 12U));
    tail(6);
    tail(0);
  }
}

}  // namespace

// Characters beyond the first plane are on no printer: they count as unknown.
std::u32string DecodeUtf8(std::string_view bytes) {
  std::u32string characters;
  characters.reserve(bytes.size());
  while (!bytes.empty()) characters += TakeCharacter(bytes);
  return characters;
}

std::string EncodeUtf8(std::u32string_view characters) {
  std::string text;
  for (const char32_t c : characters) Append(text, c < 0x10000 ? c : kReplacement);
  return text;
}

std::string CleanUtf8(std::string_view bytes) {
  return EncodeUtf8(DecodeUtf8(bytes));
}

}  // namespace impresora
