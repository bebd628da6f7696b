// Status words become flags, flags a verdict and messages.

#include "protocol/answer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/conditions.hpp"
#include "unit/failing.hpp"
#include "unit/rows.hpp"

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

TEST(StatusWord, EveryPrinterBitAloneSetsItsSlotAlone) {
  for (std::size_t bit = 0; bit < 16; ++bit) {
    const auto flags = Printer(Word(1U << bit));
    for (std::size_t slot = 0; slot < 16; ++slot) {
      EXPECT_EQ(flags[slot], slot == PrinterSlot(bit) ? -1 : 0) << "bit " << bit << " " << slot;
    }
  }
}

TEST(StatusWord, EveryFiscalBitAloneSetsItsSlotAlone) {
  for (std::size_t bit = 0; bit < 16; ++bit) {
    const auto flags = Fiscal(Word(1U << bit));
    for (std::size_t slot = 0; slot < 16; ++slot) {
      EXPECT_EQ(flags[slot], slot == bit ? -1 : 0) << "bit " << bit << " slot " << slot;
    }
  }
}

TEST(StatusWord, EveryWordSetsTheSlotsOfItsBits) {
  for (unsigned word = 0; word < kWords; word += 7) {
    const auto printer = Printer(Word(word));
    const auto fiscal = Fiscal(Word(word));
    for (std::size_t bit = 0; bit < 16; ++bit) {
      const Boolean set = (word >> bit & 1U) != 0 ? -1 : 0;
      ASSERT_EQ(printer[PrinterSlot(bit)], set) << Word(word) << " " << bit;
      ASSERT_EQ(fiscal[bit], set) << Word(word) << " " << bit;
    }
  }
}

TEST(StatusWord, PaperOutIsSlot13) {
  EXPECT_EQ(Printer("4000")[13], -1);
  EXPECT_EQ(Printer("4000")[14], 0);
}

TEST(StatusWord, ItsNeighbourIsSlot14) {
  EXPECT_EQ(Printer("2000")[14], -1);
  EXPECT_EQ(Printer("2000")[13], 0);
}

TEST(StatusWord, LowerCaseReadsLikeUpperCase) {
  EXPECT_EQ(Fiscal("c0a0"), Fiscal("C0A0"));
  EXPECT_EQ(Printer("fedc"), Printer("FEDC"));
  for (unsigned word = 0; word < kWords; word += 257) {
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

struct BadWordRow {
  const char* sentence;
  std::string_view word;
  std::string_view decoded;  // as if this had come, up to the bad digit
};

class BadWord : public testing::TestWithParam<BadWordRow> {};

TEST_P(BadWord, FailsAfterTheDigitsBehindTheBadOne) {
  Flags flags{};
  EXPECT_EQ(unit::FailureOf([&] {
              DecodeFiscal(GetParam().word, flags);
              return 0;
            }),
            13);
  EXPECT_EQ(flags, Fiscal(GetParam().decoded));
}

constexpr std::array kBadWords{
    BadWordRow{"the last digit is none", "FFFG", "0000"},
    BadWordRow{"the third digit is none", "FFG1", "0001"},
    BadWordRow{"the second digit is none", "FG21", "0021"},
    BadWordRow{"the first digit is none", "G321", "0321"},
    BadWordRow{"no word at all", "", "0000"},
    BadWordRow{"three digits", "FFF", "0000"},
    BadWordRow{"the zero of a silent printer", "0", "0000"},
    BadWordRow{"a blank for a digit", " 321", "0321"},
    BadWordRow{"a sign for a digit", "-321", "0321"},
    BadWordRow{"a zero byte for a digit",
               {"\0"
                "321",
                4},
               "0321"},
    BadWordRow{"a letter with a tilde",
               "\xD1"
               "321",
               "0321"},
};
INSTANTIATE_TEST_SUITE_P(Rows, BadWord, testing::ValuesIn(kBadWords), unit::BySentence());

TEST(HexDigit, OfAll256CodesOnly22AreDigits) {
  int digits = 0;
  for (int code = 0; code < 256; ++code) {
    const std::string text(1, static_cast<char>(code));
    if (unit::FailureOf([&] { return ValorDigitoHex(text); }) != 0) continue;
    ++digits;
    const unsigned long value = std::stoul(text, nullptr, 16);
    const auto bits = ValorDigitoHex(text);
    for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(bits[k], (value >> k & 1U) != 0 ? -1 : 0) << code;
  }
  EXPECT_EQ(digits, 22);
}

TEST(HexDigit, NoneAndTwoAreNoDigit) {
  EXPECT_EQ(unit::FailureOf([] { return ValorDigitoHex(""); }), 13);
  EXPECT_EQ(unit::FailureOf([] { return ValorDigitoHex("10"); }), 13);
}

// What fails a command, bit by bit.
TEST(Verdict, OnlyTheseBitsFailACommand) {
  const std::set<std::size_t> printer{2, 3};
  const std::set<std::size_t> fiscal{0, 1, 2, 3, 4, 5, 6, 7, 11};
  for (std::size_t slot = 0; slot < 16; ++slot) {
    Flags flags{};
    flags[slot] = -1;
    EXPECT_EQ(FailsCommand(flags, {}), printer.count(slot) == 1) << "printer " << slot;
    EXPECT_EQ(FailsCommand({}, flags), fiscal.count(slot) == 1) << "fiscal " << slot;
  }
}

TEST(Verdict, OverAllWordsIsAMaskOfBits) {
  for (unsigned word = 0; word < kWords; word += 3) {
    ASSERT_EQ(FailsCommand(Printer(Word(word)), {}), (word & 0x000CU) != 0) << Word(word);
    ASSERT_EQ(FailsCommand({}, Fiscal(Word(word))), (word & 0x08FFU) != 0) << Word(word);
  }
}

struct VerdictRow {
  const char* sentence;
  std::string_view printer;
  std::string_view fiscal;
  bool fails;
};

class Verdict : public testing::TestWithParam<VerdictRow> {};

TEST_P(Verdict, IsAsItSays) {
  EXPECT_EQ(FailsCommand(Printer(GetParam().printer), Fiscal(GetParam().fiscal)), GetParam().fails);
}

constexpr std::array kVerdicts{
    VerdictRow{"nothing set is fine", "0000", "0000", false},
    VerdictRow{"paper out is no failure", "4000", "0000", false},
    VerdictRow{"missing paper of either kind is no failure", "0030", "0000", false},
    VerdictRow{"a full buffer is no failure", "0040", "0000", false},
    VerdictRow{"offline is", "0008", "0000", true},
    VerdictRow{"memory almost full is no failure", "0000", "0100", false},
    VerdictRow{"a full memory is", "0000", "0080", true},
    VerdictRow{"a day that was not closed is", "0000", "0800", true},
    VerdictRow{"an open document is no failure", "0000", "1000", false},
    VerdictRow{"a low battery is", "0000", "0004", true},
    VerdictRow{"the summary bits alone are no failure", "8000", "8000", false},
};
INSTANTIATE_TEST_SUITE_P(Rows, Verdict, testing::ValuesIn(kVerdicts), unit::BySentence());

constexpr std::string_view kOpenInAnyWay =
    "Documento Fiscal abierto o Documento No Fiscal abierto que se emite por el rollo de papel";

using Messages = std::vector<std::string_view>;

Messages MessagesOf(std::string_view printer, std::string_view fiscal) {
  return StatusMessages(Printer(printer), Fiscal(fiscal));
}

TEST(StatusMessages, WithEverythingSetComeInTheirOrder) {
  EXPECT_EQ(MessagesOf("FFFF", "FFFF"),
            (Messages{"Error y/o falla de impresora",
                      "Impresora fuera de linea",
                      "Buffer de impresora lleno",
                      "Buffer de impresora vacio",
                      "Entrada de hojas sueltas frontal preparada",
                      "Hoja suelta frontal preparada",
                      "Impresora sin papel",
                      "Error de comprobacion de memoria fiscal",
                      "Error de comprobacion de memoria de trabajo",
                      "Bateria Baja",
                      "Comando no reconocido",
                      "Campo de datos invalido",
                      "Comando no valido para estado fiscal",
                      "Desbordamiento de totales",
                      "Memoria Fiscal llena",
                      "Memoria Fiscal casi llena",
                      "Es necesario hacer un cierre de la jornada (pasaron mas de 24 hs)",
                      "Documento fiscal abierto",
                      kOpenInAnyWay,
                      "Factura o Impresi\xF3n en hoja suelta inicializada"}));
}

TEST(StatusMessages, WithNothingSetThereAreNone) {
  EXPECT_EQ(MessagesOf("0000", "0000"), Messages{});
}

TEST(StatusMessages, FullMemoryAndADayNotClosedGiveTwo) {
  EXPECT_EQ(MessagesOf("0000", "8880"),
            (Messages{"Memoria Fiscal llena",
                      "Es necesario hacer un cierre de la jornada (pasaron mas de 24 hs)"}));
}

TEST(StatusMessages, AnOpenDocumentIsToldTwice) {
  EXPECT_EQ(MessagesOf("0000", "9000"), (Messages{"Documento fiscal abierto", kOpenInAnyWay}));
}

TEST(StatusMessages, BitsWithoutAMessageStaySilent) {
  const auto silent_printer = Word(0xFFFF & ~0x43CCU);
  const auto silent_fiscal = Word(0xFFFF & ~0x39FFU);
  EXPECT_EQ(MessagesOf(silent_printer, silent_fiscal), Messages{});
}

// Bit by bit, the messages of a pair of words are those of its bits one after another.
TEST(StatusMessages, OfManyBitsAreThoseOfEachBit) {
  for (unsigned word = 0; word < kWords; word += 211) {
    Messages expected;
    for (std::size_t slot = 0; slot < 16; ++slot) {
      Flags one{};
      one[slot] = Printer(Word(word))[slot];
      for (const auto text : StatusMessages(one, {})) expected.push_back(text);
    }
    for (std::size_t slot = 0; slot < 16; ++slot) {
      Flags one{};
      one[slot] = Fiscal(Word(word))[slot];
      for (const auto text : StatusMessages({}, one)) expected.push_back(text);
    }
    ASSERT_EQ(MessagesOf(Word(word), Word(word)), expected) << Word(word);
  }
}

}  // namespace
}  // namespace kestra
