#include "platform/shared/text.hpp"

#include <gtest/gtest.h>

#include "base/ansi.hpp"
#include "platform/posix/locale_text.hpp"

namespace kestra {
namespace {

TEST(TextEncoding, EveryByteComesBackFromUtf8) {
  for (int value = 0; value < 256; ++value) {
    const std::string byte(1, static_cast<char>(value));
    EXPECT_EQ(AnsiFromUtf8(Utf8FromAnsi(byte)), byte) << value;
  }
}

TEST(TextEncoding, SpanishLettersAndTheEuroAreThemselves) {
  EXPECT_EQ(Utf8FromAnsi("áéíóúüñÁÉÍÓÚÜÑ¿¡º"_ansi), "áéíóúüñÁÉÍÓÚÜÑ¿¡º");
  EXPECT_EQ(Utf8FromAnsi("\x80\x8A\x93\x94\x99\x9F"), "€Š“”™Ÿ");
  EXPECT_EQ(AnsiFromUtf8("€Š“”™Ÿ"), "\x80\x8A\x93\x94\x99\x9F");
}

TEST(TextEncoding, WhatTheCodePageLacksIsAQuestionMark) {
  struct Row {
    const char* why;
    std::string utf8;
    const char* ansi;
  };
  const Row rows[] = {
      {"a letter of another alphabet", "aЖb", "a?b"},
      {"a character of four bytes", "a\xF0\x9F\x98\x80z", "a?z"},
      {"a control character whose byte means something else", "\xC2\x80", "?"},
      {"a lone continuation byte", "a\x80z", "a?z"},
      {"a character cut short by the end", "a\xC3", "a?"},
      {"a character cut short by a letter", "\xE2\x82z", "??z"},
      {"an overlong form", "\xC0\xAF", "??"},
      {"a byte that begins nothing", "\xFF", "?"},
  };
  for (const Row& row : rows) EXPECT_EQ(AnsiFromUtf8(row.utf8), row.ansi) << row.why;
}

TEST(LocaleText, GoesToTheLocalesCharacterSet) {
  EXPECT_EQ(CodesetFromAnsi("más"_ansi, "UTF-8"), "más");
  EXPECT_EQ(CodesetFromAnsi("comunicación"_ansi, "ISO-8859-1"), "comunicación"_ansi);
  EXPECT_EQ(CodesetFromAnsi("1 \x80 = 1", "ISO-8859-1"), "1 ? = 1");
  EXPECT_EQ(CodesetFromAnsi("1 \x80 = 1", "ISO-8859-15"), "1 \xA4 = 1");
  EXPECT_EQ(CodesetFromAnsi("comunicación"_ansi, "ANSI_X3.4-1968"), "comunicaci?n");
  EXPECT_EQ(CodesetFromAnsi("comunicación"_ansi, "no hay tal"), "comunicaci??n");
}

TEST(LocaleText, ComesFromTheLocalesCharacterSet) {
  EXPECT_EQ(AnsiFromCodeset("sí", "UTF-8"), "sí"_ansi);
  EXPECT_EQ(AnsiFromCodeset("sí"_ansi, "ISO-8859-1"), "sí"_ansi);
  EXPECT_EQ(AnsiFromCodeset("\xA4", "ISO-8859-15"), "\x80");
  EXPECT_EQ(AnsiFromCodeset("s\xED", "ANSI_X3.4-1968"), "s?");
}

TEST(LocaleText, LongTextsPassWhole) {
  const std::string text(5000, '\xE1');
  EXPECT_EQ(CodesetFromAnsi(text, "ISO-8859-1"), text);
  EXPECT_EQ(CodesetFromAnsi(text, "ANSI_X3.4-1968"), std::string(5000, '?'));
}

}  // namespace
}  // namespace kestra
