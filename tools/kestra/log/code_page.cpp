#include "log/code_page.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

#include "text/text.hpp"
#include "text/utf8.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

struct Name {
  std::string_view name;
  CodePage page;
};

constexpr std::array kNames{
    Name{"1252", CodePage::kAnsi},  Name{"utf-8", CodePage::kUtf8},
    Name{"utf8", CodePage::kUtf8},  Name{"utf-16", CodePage::kUtf16},
    Name{"850", CodePage::kDos850}, Name{"437", CodePage::kDos437},
};

// What the upper half of a code stands for.
using UpperHalf = std::array<char16_t, 128>;

constexpr UpperHalf kDos850{{
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557,
    0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB,
    0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE, 0x00DE, 0x00DA, 0x00DB, 0x00D9,
    0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
}};

constexpr UpperHalf kDos437{{
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557,
    0x255D, 0x255C, 0x255B, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559,
    0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C, 0x2588, 0x2584, 0x258C, 0x2590, 0x2580,
    0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4, 0x03A6, 0x0398, 0x03A9, 0x03B4,
    0x221E, 0x03C6, 0x03B5, 0x2229, 0x2261, 0x00B1, 0x2265, 0x2264, 0x2320, 0x2321, 0x00F7, 0x2248,
    0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00A0,
}};

std::map<char32_t, char> MakeAnsi() {
  std::map<char32_t, char> letters;
  for (unsigned code = 0x80; code <= 0xFF; ++code) {
    const char byte = static_cast<char>(code);
    const auto letter = impresora::DecodeUtf8(impresora::Utf8FromHost({&byte, 1}));
    if (letter.size() == 1 && letter.front() >= 0x80) letters[letter.front()] = byte;
  }
  return letters;
}

char Ansi(char32_t letter) {
  static const auto letters = MakeAnsi();
  if (letter < 0x80) return static_cast<char>(letter);
  const auto found = letters.find(letter);
  return found == letters.end() ? '?' : found->second;
}

unsigned Code(char c) {
  return static_cast<std::uint8_t>(c);
}

// How many bytes follow the first of a character; nothing for one that cannot be first.
std::optional<unsigned> Following(unsigned byte) {
  if (byte < 0x80) return 0U;
  if (byte >= 0xC2 && byte < 0xE0) return 1U;
  if (byte >= 0xE0 && byte < 0xF0) return 2U;
  if (byte >= 0xF0 && byte < 0xF5) return 3U;
  return std::nullopt;
}

std::string Upper(std::string_view bytes, const UpperHalf& half) {
  std::string text(bytes);
  for (char& c : text) {
    if (Code(c) >= 0x80) c = Ansi(half.at(Code(c) - 0x80U));
  }
  return text;
}

// Takes a character off the front, or nothing while it is not all there. A byte that begins none stands for itself.
char32_t TakeUtf8(std::string_view& bytes) {
  const auto following = Following(Code(bytes.front()));
  const std::size_t size = following ? *following + 1 : 1;
  const std::size_t there = std::min(size, bytes.size());
  std::size_t count = 1;
  while (count < there && (Code(bytes[count]) & 0xC0U) == 0x80U) ++count;
  if (count < size && count == bytes.size()) return 0;
  const auto letter = impresora::DecodeUtf8(bytes.substr(0, count));
  const char32_t value = count == 1 ? Code(bytes.front()) : letter.front();
  bytes.remove_prefix(count);
  return value;
}

char32_t TakeUtf16(std::string_view& bytes) {
  if (bytes.size() < 2) return 0;
  const char32_t unit = Code(bytes[0]) | (Code(bytes[1]) << 8U);
  bytes.remove_prefix(2);
  return unit;
}

}  // namespace

std::optional<CodePage> ReadCodePage(std::string_view name) {
  for (const Name& row : kNames) {
    if (row.name == name) return row.page;
  }
  return std::nullopt;
}

void CodePageGuess::Feed(std::string_view bytes) {
  if (head_.size() < kUtf8Mark.size())
    head_.append(bytes.substr(0, kUtf8Mark.size() - head_.size()));
  for (const char c : bytes) FeedByte(Code(c));
}

void CodePageGuess::FeedByte(unsigned byte) {
  if (following_ > 0) {
    broken_ = broken_ || (byte & 0xC0U) != 0x80U;
    if (--following_ == 0) many_ = true;
    return;
  }
  const auto following = Following(byte);
  broken_ = broken_ || !following;
  following_ = following.value_or(0);
}

CodePage CodePageGuess::Guess() const {
  if (head_.starts_with(kUtf16Mark)) return CodePage::kUtf16;
  return many_ && !broken_ ? CodePage::kUtf8 : CodePage::kAnsi;
}

std::string ToAnsi::operator()(std::string_view bytes) {
  if (page_ == CodePage::kAnsi) return std::string(bytes);
  if (page_ == CodePage::kDos850) return Upper(bytes, kDos850);
  if (page_ == CodePage::kDos437) return Upper(bytes, kDos437);
  rest_ += bytes;
  std::string text;
  std::string_view left = rest_;
  while (!left.empty()) {
    const std::size_t before = left.size();
    const char32_t letter = page_ == CodePage::kUtf8 ? TakeUtf8(left) : TakeUtf16(left);
    if (left.size() == before) break;
    const bool mark = !begun_ && letter == 0xFEFF;
    begun_ = true;
    if (!mark) text += Ansi(letter);
  }
  rest_.erase(0, rest_.size() - left.size());
  return text;
}

}  // namespace kestra::tool
