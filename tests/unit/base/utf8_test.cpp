// UTF-8, and windows-1252 beside it.

#include "base/utf8.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/code_page.hpp"

namespace kestra {
namespace {

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::size_t bytes;
} kFronts[] = {
    {"nothing", "", 0},
    {"a letter of ASCII", "Ab", 1},
    {"a zero", {"\0", 1}, 1},
    {"the last of one byte", "\x7F", 1},
    {"the first of two", "\xC2\x80", 2},
    {"the last of two", "\xDF\xBF", 2},
    {"the first of three", "\xE0\xA0\x80", 3},
    {"the last before the pairs", "\xED\x9F\xBF", 3},
    {"the first behind the pairs", "\xEE\x80\x80", 3},
    {"the last of three", "\xEF\xBF\xBF", 3},
    {"the first of four", "\xF0\x90\x80\x80", 4},
    {"the last of all", "\xF4\x8F\xBF\xBF", 4},
    {"a second byte alone", "\x80", 0},
    {"the last second byte alone", "\xBF", 0},
    {"two bytes for a letter of one", "\xC1\x81", 0},
    {"three for one of two", "\xE0\x9F\xBF", 0},
    {"four for one of three", "\xF0\x8F\xBF\xBF", 0},
    {"half of a pair", "\xED\xA0\x80", 0},
    {"beyond the last of all", "\xF4\x90\x80\x80", 0},
    {"a byte that begins nothing", "\xF5\x80\x80\x80", 0},
    {"the greatest byte", "\xFF", 0},
    {"cut short by the end", "\xE2\x82", 0},
    {"cut short by a letter", "\xC3Z", 0},
    {"cut short behind its second byte", "\xE2\x82Z", 0},
    {"a third byte too great", "\xE2\x82\xC0", 0},
};

TEST(Utf8, AWellFormedCharacterIsKnownByItsBytes) {
  for (const auto& row : kFronts) EXPECT_EQ(Utf8Front(row.text), row.bytes) << row.sentence;
}

TEST(Utf8, AWellFormedCharacterHasItsCode) {
  EXPECT_EQ(Utf8Character("A"), U'A');
  EXPECT_EQ(Utf8Character("\u00F1"), U'\u00F1');
  EXPECT_EQ(Utf8Character("\u20AC"), U'\u20AC');
  EXPECT_EQ(Utf8Character("\U0001F600"), U'\U0001F600');
}

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::size_t size;
  std::string_view front;
} kCuts[] = {
    {"what fits stays", "a\u00F1", 3, "a\u00F1"},
    {"with room to spare too", "a", 9, "a"},
    {"between letters", "abc", 2, "ab"},
    {"before a character that does not fit", "a\u00F1o", 2, "a"},
    {"behind one that does", "a\u00F1o", 3, "a\u00F1"},
    {"before one of three bytes", "a\u20AC", 3, "a"},
    {"down to nothing", "\u20AC", 2, ""},
    {"no room", "\u20AC", 0, ""},
    {"what begins with no character is nothing", "\x80\x80", 1, ""},
};

TEST(Utf8, IsCutBetweenCharacters) {
  for (const auto& row : kCuts) EXPECT_EQ(CutUtf8(row.text, row.size), row.front) << row.sentence;
}

TEST(CodePage, EveryByteComesBackFromItsCharacter) {
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<char>(value);
    EXPECT_EQ(ByteOf(CharacterOf(byte)), byte) << value;
  }
}

TEST(CodePage, HasItsOwnCharactersBetween80And9F) {
  EXPECT_EQ(CharacterOf('\x7F'), 0x7Fu);
  EXPECT_EQ(CharacterOf('\x80'), U'\u20AC');
  EXPECT_EQ(CharacterOf('\x9F'), U'\u0178');
  EXPECT_EQ(CharacterOf('\xA0'), 0xA0u);
  EXPECT_EQ(ByteOf(0x80), std::nullopt);
  EXPECT_EQ(ByteOf(0x100), std::nullopt);
}

}  // namespace
}  // namespace kestra
