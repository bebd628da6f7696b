// Texts become fields that the printer takes.

#include "fields/text_field.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <string_view>

#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::int32_t width;
  std::string_view field;
} kFitted[] = {
    {"three blanks are an empty field", "   ", 10, "\x7F"},
    {"no text at all is an empty field", "", 10, "\x7F"},
    {"an empty field needs no width", "  ", 0, "\x7F"},
    {"an empty field does not mind a negative width", "", -1, "\x7F"},
    {"a short text is padded", "ABC", 5, "ABC  "},
    {"a text of the very width stays", "ABCDE", 5, "ABCDE"},
    {"a long text is cut", "ABCDEF", 4, "ABCD"},
    {"blanks around a text go first", "  ABC  ", 5, "ABC  "},
    {"blanks inside stay", " A C ", 4, "A C "},
    {"what is cut may leave blanks behind", "AB  CD", 3, "AB "},
    {"a width of zero leaves nothing", "ABC", 0, ""},
    {"a tab is no blank", "\tA", 4, "\tA  "},
    {"letters beyond ASCII count one each", "\xD1\xE1", 3, "\xD1\xE1 "},
    {"a zero byte is a character", {"A\0B", 3}, 4, {"A\0B ", 4}},
};

TEST(FittedText, FillsItsField) {
  for (const auto& row : kFitted) {
    EXPECT_EQ(AjustarTexto(row.text, row.width), row.field) << row.sentence;
  }
}

TEST(FittedText, TheWidestFieldHas32767Characters) {
  EXPECT_EQ(AjustarTexto("A", 32767), "A" + std::string(32766, ' '));
}

TEST(FittedText, WidthsThatNoFieldHasFail) {
  EXPECT_EQ(FailureNumber([] { return AjustarTexto("A", -1); }), 5);
  EXPECT_EQ(FailureNumber([] { return AjustarTexto("A", -32768); }), 5);
  for (const std::int32_t width : {32768, -32769, std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(FailureNumber([&] { return AjustarTexto("A", width); }), 6) << width;
  }
}

// Every code a text can hold, against the list of those that the printer takes.
TEST(CleanedText, OfAll256CodesOnlyThePrintersOwnPass) {
  const std::set<int> accented{240, 241, 242, 244, 248};
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const bool passes = (code >= 32 && code < 128) || accented.count(code) == 1;
    EXPECT_EQ(LimpiarCaracteres(std::string(1, c)), std::string(1, passes ? c : '-')) << code;
  }
}

TEST(CleanedText, AllCodesAtOnceKeepTheirPlaces) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  const auto clean = LimpiarCaracteres(all);
  ASSERT_EQ(clean.size(), all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_TRUE(clean[i] == all[i] || clean[i] == '-') << i;
  }
  EXPECT_EQ(LimpiarCaracteres(clean), clean);
}

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::string_view clean;
} kCleaned[] = {
    {"the small n with tilde passes", "a\xF1o", "a\xF1o"},
    {"a capital A with acute accent does not", "\xC1rbol", "-rbol"},
    {"a tab does not", "a\tb", "a-b"},
    {"the mark of an empty field passes", "\x7F", "\x7F"},
    {"a separator does not",
     "a\x1C"
     "b",
     "a-b"},
    {"a zero byte does not", {"a\0b", 3}, "a-b"},
    {"the same character twice goes twice", "\xC1\xC1", "--"},
    {"nothing stays nothing", "", ""},
};

TEST(CleanedText, HasDashesForTheRest) {
  for (const auto& row : kCleaned) {
    EXPECT_EQ(LimpiarCaracteres(std::string(row.text)), row.clean) << row.sentence;
  }
}

TEST(TrimmedText, LosesBlanksOnly) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("\ta\t"), "\ta\t");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
}

TEST(FixedText, IsCutOrPadded) {
  EXPECT_EQ(FixedWidth("TFX", 2), "TF");
  EXPECT_EQ(FixedWidth("T", 2), "T ");
  EXPECT_EQ(FixedWidth("", 2), "  ");
  EXPECT_EQ(FixedWidth("TF", 0), "");
}

TEST(FilledText, GrowsOnTheLeftAndIsNeverCut) {
  EXPECT_EQ(PadLeft("42", 5, '0'), "00042");
  EXPECT_EQ(PadLeft("", 3, '0'), "000");
  EXPECT_EQ(PadLeft("12345", 5, '0'), "12345");
  EXPECT_EQ(PadLeft("123456", 5, '0'), "123456");
}

}  // namespace
}  // namespace kestra
