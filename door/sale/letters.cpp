#include "sale/letters.hpp"

#include <algorithm>
#include <array>

namespace puerta {
namespace {

constexpr char32_t kBroken = 0xFFFFFFFF;

int LengthBy(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

// Takes the first character; kBroken for what is no UTF-8.
char32_t TakeLetter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const auto length = static_cast<std::size_t>(LengthBy(first));
  if (length == 0 || length > text.size()) {
    text.remove_prefix(1);
    return kBroken;
  }
  char32_t letter = length == 1 ? first : first & (0x7FU >> length);
  for (const char next : text.substr(1, length - 1))
    letter = letter << 6U | (static_cast<unsigned char>(next) & 0x3FU);
  text.remove_prefix(length);
  return letter;
}

struct Range {
  char32_t first, last;
};

// What any printer has in its own table.
constexpr std::array kPrinters{Range{0x20, 0x7E}, Range{0xF0, 0xF2}, Range{0xF4, 0xF4},
                               Range{0xF8, 0xF8}};

// What is respelt to something: letters of Latin alphabets, punctuation, signs of money and numbers.
constexpr std::array kRespelt{Range{0xA1, 0x17F},    Range{0x218, 0x21B},   Range{0x2010, 0x2044},
                              Range{0x20AC, 0x20AC}, Range{0x2103, 0x215E}, Range{0x2212, 0x2212}};

struct Longer {
  std::u32string_view letters;
  int length;
};
constexpr std::array kLonger{
    Longer{U"±ÆæßÞþŒœĲĳ‡№™ﬁﬂ", 2},
    Longer{U"£¥©®¼½¾€…", 3},
    Longer{U"‰", 4},
};

bool IsAmong(const auto& ranges, char32_t letter) {
  return std::any_of(ranges.begin(), ranges.end(), [letter](const Range& range) {
    return letter >= range.first && letter <= range.last;
  });
}

bool Reaches(char32_t letter, bool respells) {
  return IsAmong(kPrinters, letter) || (respells && IsAmong(kRespelt, letter));
}

int LengthOf(char32_t letter) {
  for (const auto& row : kLonger)
    if (row.letters.find(letter) != std::u32string_view::npos) return row.length;
  return 1;
}

}  // namespace

std::string ForeignLetter(std::string_view text, bool respells) {
  while (!text.empty()) {
    const auto before = text;
    const char32_t letter = TakeLetter(text);
    if (!Reaches(letter, respells))
      return std::string(before.substr(0, before.size() - text.size()));
  }
  return {};
}

int PrintedLength(std::string_view text) {
  int length = 0;
  while (!text.empty()) length += LengthOf(TakeLetter(text));
  return length;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace puerta
