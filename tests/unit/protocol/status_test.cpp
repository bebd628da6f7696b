// Status words become flags, flags a verdict and messages.

#include "protocol/answer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/conditions.hpp"
#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

constexpr unsigned kWords = 0x10000;

std::string Word(unsigned value, const char* format = "%04X") {
  std::array<char, 8> text{};
  // NOLINTNEXTLINE(clang-diagnostic-format-nonliteral): one of two literals
  (void)std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

// Where a bit of the printer's word is kept: two of them have changed places.
std::size_t PrinterSlot(std::size_t bit) {
  if (bit == 13) return 14;
  return bit == 14 ? 13 : bit;
}

Flags Printer(std::string_view word) {
  Flags flags{};
  DecodePrinter(word, flags);
  return flags;
}

Flags Fiscal(std::string_view word) {
  Flags flags{};
  DecodeFiscal(word, flags);
  return flags;
}

TEST(StatusWord, EveryWordSetsTheSlotsOfItsBits) {
  for (unsigned word = 0; word < kWords; ++word) {
    Flags wanted{};
    Flags wanted_of_printer{};
    for (std::size_t bit = 0; bit < 16; ++bit) {
      wanted[bit] = wanted_of_printer[PrinterSlot(bit)] = (word >> bit & 1U) != 0 ? -1 : 0;
    }
    ASSERT_EQ(Printer(Word(word)), wanted_of_printer) << Word(word);
    ASSERT_EQ(Fiscal(Word(word)), wanted) << Word(word);
  }
}

TEST(StatusWord, LowerCaseReadsLikeUpperCase) {
  EXPECT_EQ(Fiscal("c0a0"), Fiscal("C0A0"));
  for (unsigned word = 0xFEDC % 257; word < kWords; word += 257) {
    ASSERT_EQ(Printer(Word(word, "%04x")), Printer(Word(word)));
  }
}

TEST(StatusWord, WhatStandsBehindFourDigitsDoesNotCount) {
  EXPECT_EQ(Fiscal("0100ZZ"), Fiscal("0100"));
}

TEST(StatusWord, AFlagThatWasSetIsCleared) {
  Flags flags;
  flags.fill(-1);
  DecodeFiscal("0000", flags);
  EXPECT_EQ(flags, Flags{});
}

constexpr struct {
  const char* sentence;
  std::string_view word;
  std::string_view decoded;  // as if this had come, up to the bad digit
} kBadWords[] = {
    {"the last digit is none", "FFFG", "0000"},
    {"the third digit is none", "FFG1", "0001"},
    {"the second digit is none", "FG21", "0021"},
    {"the first digit is none", "G321", "0321"},
    {"no word at all", "", "0000"},
    {"three digits", "FFF", "0000"},
    {"the zero of a silent printer", "0", "0000"},
    {"a blank for a digit", " 321", "0321"},
    {"a sign for a digit", "-321", "0321"},
    {"a zero byte for a digit",
     {"\0"
      "321",
      4},
     "0321"},
    {"a letter with a tilde",
     "\xD1"
     "321",
     "0321"},
};

TEST(BadWord, FailsAfterTheDigitsBehindTheBadOne) {
  for (const auto& row : kBadWords) {
    SCOPED_TRACE(row.sentence);
    Flags flags{};
    EXPECT_EQ(FailureNumber([&] { DecodeFiscal(row.word, flags); }), 13);
    EXPECT_EQ(flags, Fiscal(row.decoded));
  }
}

TEST(HexDigit, OfAll256CodesOnly22AreDigits) {
  int digits = 0;
  for (int code = 0; code < 256; ++code) {
    const std::string text(1, static_cast<char>(code));
    if (FailureNumber([&] { return ValorDigitoHex(text); }) != 0) continue;
    ++digits;
    const unsigned long value = std::stoul(text, nullptr, 16);
    const auto bits = ValorDigitoHex(text);
    for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(bits[k], (value >> k & 1U) != 0 ? -1 : 0) << code;
  }
  EXPECT_EQ(digits, 22);
}

TEST(HexDigit, NoneAndTwoAreNoDigit) {
  EXPECT_EQ(FailureNumber([] { return ValorDigitoHex(""); }), 13);
  EXPECT_EQ(FailureNumber([] { return ValorDigitoHex("10"); }), 13);
}

// Paper, a full buffer, an open document and the summary bits fail none.
TEST(Verdict, OverAllWordsIsAMaskOfBits) {
  for (unsigned word = 0; word < kWords; ++word) {
    ASSERT_EQ(FailsCommand(Printer(Word(word)), {}), (word & 0x000CU) != 0) << Word(word);
    ASSERT_EQ(FailsCommand({}, Fiscal(Word(word))), (word & 0x08FFU) != 0) << Word(word);
  }
}

constexpr std::string_view kOpenInAnyWay =
    "Documento Fiscal abierto o Documento No Fiscal abierto que se emite por el rollo de papel";

using Messages = std::vector<std::string_view>;

// In their order. A bit that is not here has none.
constexpr struct {
  unsigned printer;
  unsigned fiscal;
  std::string_view text;
} kMessages[] = {
    {0x0004, 0, "Error y/o falla de impresora"},
    {0x0008, 0, "Impresora fuera de linea"},
    {0x0040, 0, "Buffer de impresora lleno"},
    {0x0080, 0, "Buffer de impresora vacio"},
    {0x0100, 0, "Entrada de hojas sueltas frontal preparada"},
    {0x0200, 0, "Hoja suelta frontal preparada"},
    {0x4000, 0, "Impresora sin papel"},
    {0, 0x0001, "Error de comprobacion de memoria fiscal"},
    {0, 0x0002, "Error de comprobacion de memoria de trabajo"},
    {0, 0x0004, "Bateria Baja"},
    {0, 0x0008, "Comando no reconocido"},
    {0, 0x0010, "Campo de datos invalido"},
    {0, 0x0020, "Comando no valido para estado fiscal"},
    {0, 0x0040, "Desbordamiento de totales"},
    {0, 0x0080, "Memoria Fiscal llena"},
    {0, 0x0100, "Memoria Fiscal casi llena"},
    {0, 0x0800, "Es necesario hacer un cierre de la jornada (pasaron mas de 24 hs)"},
    {0, 0x1000, "Documento fiscal abierto"},
    {0, 0x1000, kOpenInAnyWay},
    {0, 0x2000, "Factura o Impresi\xF3n en hoja suelta inicializada"},
};

void ExpectMessages(unsigned printer, unsigned fiscal) {
  Messages expected;
  for (const auto& row : kMessages) {
    const bool set = (row.printer & printer) != 0 || (row.fiscal & fiscal) != 0;
    if (set) expected.push_back(row.text);
  }
  ASSERT_EQ(StatusMessages(Printer(Word(printer)), Fiscal(Word(fiscal))), expected)
      << Word(printer) << " " << Word(fiscal);
}

TEST(StatusMessages, AreThoseOfEachBitInTheirOrder) {
  ExpectMessages(0, 0);
  ExpectMessages(0xFFFF, 0xFFFF);
  for (unsigned bit = 1; bit < kWords; bit *= 2) {
    ExpectMessages(bit, 0);
    ExpectMessages(0, bit);
  }
  for (unsigned word = 0; word < kWords; word += 211) ExpectMessages(word, word);
}

}  // namespace
}  // namespace kestra
