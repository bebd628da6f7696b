// The library's own texts are turned into windows-1252 by the compiler.

#include "base/ansi.hpp"

#include <gtest/gtest.h>

namespace kestra {
namespace {

TEST(AnsiLiteral, PlainLettersStayAsTheyAre) {
  EXPECT_EQ("Factura A ~ 0.00"_ansi, "Factura A ~ 0.00");
}

TEST(AnsiLiteral, NothingStaysNothing) {
  EXPECT_EQ(""_ansi, "");
}

TEST(AnsiLiteral, LettersOfSpanishAreOneByteEach) {
  EXPECT_EQ("áéíóúüñÁÉÍÓÚÜÑ"_ansi, "\xE1\xE9\xED\xF3\xFA\xFC\xF1\xC1\xC9\xCD\xD3\xDA\xDC\xD1");
}

TEST(AnsiLiteral, SoAreItsSigns) {
  EXPECT_EQ("¡N° 1º y 2ª?¿"_ansi, "\xA1N\xB0 1\xBA y 2\xAA?\xBF");
}

TEST(AnsiLiteral, TheFirstAndTheLastOfEachHalf) {
  EXPECT_EQ("\u0080\u00BF\u00C0\u00FF"_ansi, "\x80\xBF\xC0\xFF");
}

}  // namespace
}  // namespace kestra
