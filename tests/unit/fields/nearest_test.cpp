// The letters that a printer has, for those that it does not have.

#include "fields/nearest.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/ansi.hpp"
#include "fields/text_field.hpp"

namespace kestra {
namespace {

constexpr struct {
  std::string_view text;
  std::string_view near;
} kTexts[] = {
    {"áéíóúü ÁÉÍÓÚÜ"_ansi, "aeiouu AEIOUU"},
    {"año, AÑO"_ansi, "a\xF1o, ANO"},
    {"ça, Ç, ß"_ansi, "ca, C, ss"},
    {"N° 1º y 2ª"_ansi, "No 1o y 2a"},
    {"¿Qué? ¡Sí!"_ansi, "?Que? !Si!"},
    {"«a» ½ ±2 × 3"_ansi, "\"a\" 1/2 +-2 x 3"},
    {"\x80 \x85 \x96 \x97 \x91\x92 \x93\x94 \x95", "EUR ... - - '' \"\" *"},
    {"a\tb\r\n\xA0"
     "c",
     "a b   c"},
    {{"a\0b", 3}, "a b"},
    {"\x02\x03\x1C\x81", "----"},
    {"co\xAD"
     "op",
     "coop"},
    {"A~ \x7F", "A~ \x7F"},
    {"", ""},
};

TEST(NearestText, HasThePrintersLetters) {
  for (const auto& row : kTexts) EXPECT_EQ(Transliterate(row.text), row.near) << row.near;
}

TEST(NearestText, OfAll256CodesNoneIsRefusedAndTheTakenStay) {
  for (int code = 0; code < 256; ++code) {
    const std::string text(1, static_cast<char>(code));
    const auto near = Transliterate(text);
    EXPECT_EQ(LimpiarCaracteres(near), near) << code;
    const bool taken = LimpiarCaracteres(text) == text;
    EXPECT_EQ(near == text, taken) << code;
  }
}

constexpr struct {
  char32_t character;
  std::string_view letters;
} kCharacters[] = {
    {U'ő', "o"}, {U'ș', "s"},          {U'Ł', "L"},       {U'№', "No"},
    {U'−', "-"}, {U'ﬁ', "fi"},         {U'\u0301', ""},   {U'\uFEFF', ""},
    {U'Ж', "-"}, {U'\U0001F600', "-"}, {0xFFFFFFFF, "-"},
};

TEST(NearestLetter, OfCharactersBesideTheCodePage) {
  for (const auto& row : kCharacters) {
    EXPECT_EQ(NearestLetters(row.character), row.letters) << static_cast<unsigned>(row.character);
  }
}

}  // namespace
}  // namespace kestra
