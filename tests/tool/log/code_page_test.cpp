#include "log/code_page.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace kestra::tool {
namespace {

using std::string_view_literals::operator""sv;

struct Row {
  std::string_view bytes;
  CodePage page;
  std::string_view ansi;
};

const Row kRows[] = {
    {"plano", CodePage::kAnsi, "plano"},
    {"caf\xE9", CodePage::kAnsi, "caf\xE9"},
    {"caf\xC3\xA9", CodePage::kUtf8, "caf\xE9"},
    {"\xEF\xBB\xBF"
     "caf\xC3\xA9",
     CodePage::kUtf8, "caf\xE9"},
    {"\xE2\x82\xAC \xE2\x86\x92", CodePage::kUtf8, "\x80 ?"},
    {"\xFF\xFE"
     "c\0\xE9\0"sv,
     CodePage::kUtf16, "c\xE9"},
};

CodePage GuessOf(std::string_view bytes) {
  CodePageGuess guess;
  guess.Feed(bytes);
  return guess.Guess();
}

TEST(CodePage, IsGuessedFromTheWholeFile) {
  for (const Row& row : kRows) EXPECT_EQ(GuessOf(row.bytes), row.page) << row.bytes;
}

TEST(CodePage, BecomesTheTillsHoweverTheBytesAreCut) {
  for (const Row& row : kRows) {
    for (std::size_t cut = 0; cut <= row.bytes.size(); ++cut) {
      ToAnsi to_ansi(row.page);
      std::string text = to_ansi(row.bytes.substr(0, cut));
      text += to_ansi(row.bytes.substr(cut));
      EXPECT_EQ(text, row.ansi) << row.bytes << " cut at " << cut;
    }
  }
}

TEST(CodePage, OfTheScreensOfOldTills) {
  EXPECT_EQ(ToAnsi(CodePage::kDos850)("Mu\xA4oz \xE9"), "Mu\xF1oz \xDA");
  EXPECT_EQ(ToAnsi(CodePage::kDos437)("Mu\xA4oz \xE1"), "Mu\xF1oz \xDF");
  EXPECT_EQ(ToAnsi(CodePage::kDos437)("\xC9"), "?");
}

TEST(CodePage, WhatIsBrokenPasses) {
  EXPECT_EQ(ToAnsi(CodePage::kUtf8)("a\xF1z"), "a\xF1z");
  EXPECT_EQ(ToAnsi(CodePage::kUtf8)("a\xC3"), "a");
}

TEST(CodePage, HasAName) {
  EXPECT_EQ(ReadCodePage("850"), CodePage::kDos850);
  EXPECT_EQ(ReadCodePage("utf-8"), CodePage::kUtf8);
  EXPECT_EQ(ReadCodePage("latin"), std::nullopt);
}

}  // namespace
}  // namespace kestra::tool
