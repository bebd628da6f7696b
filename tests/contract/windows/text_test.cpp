#include <gtest/gtest.h>

#include "platform/windows/text.hpp"

namespace kestra {
namespace {

TEST(WideText, AccentsAndTheEuroSignAreShownWhateverTheSystemsCodePage) {
  EXPECT_EQ(WideFromAnsi("\xBFReintentar? a\xF1o \x80"), L"\u00BFReintentar? a\u00F1o \u20AC");
  EXPECT_EQ(AnsiFromWide(L"\u00BFReintentar? a\u00F1o \u20AC"), "\xBFReintentar? a\xF1o \x80");
}

TEST(WideText, EveryByteComesBack) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  EXPECT_EQ(AnsiFromWide(WideFromAnsi(bytes)), bytes);
}

TEST(WideText, WhatTheCodePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(AnsiFromWide(L"\u0416\u6F22"), "??");
}

TEST(WideText, NothingIsNothing) {
  EXPECT_EQ(WideFromAnsi(""), L"");
  EXPECT_EQ(AnsiFromWide(L""), "");
}

}  // namespace
}  // namespace kestra
