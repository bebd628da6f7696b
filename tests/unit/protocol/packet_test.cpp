// What goes around a command, and what is found in the bytes that come back.

#include "protocol/packet.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "protocol/command.hpp"
#include "unit/rows.hpp"

namespace kestra {
namespace {

TEST(Packet, AFrameIsStartNumberCommandEnd) {
  EXPECT_EQ(BuildPacket(32, "K"), "\x02 K\x03");
  EXPECT_EQ(BuildPacket(70,
                        "*\x1C"
                        "A"),
            "\x02"
            "F*\x1C"
            "A\x03");
}

TEST(Packet, AFrameAroundNothingHasItsOwnBytesOnly) {
  EXPECT_EQ(BuildPacket(40, ""), "\x02(\x03");
}

TEST(Packet, AFrameSentAgainIsFramedAgain) {
  EXPECT_EQ(BuildPacket(41, BuildPacket(40, "K")), "\x02)\x02(K\x03\x03");
}

TEST(Checksum, CuttingPaperWithNumber32Sums112) {
  EXPECT_EQ(ChecksumOf(BuildPacket(32, "K")), "0070");
}

struct SumRow {
  const char* sentence;
  std::size_t count;  // of bytes
  unsigned char byte;
  std::string_view digits;
};

class Checksum : public testing::TestWithParam<SumRow> {};

TEST_P(Checksum, HasFourDigits) {
  const std::string bytes(GetParam().count, static_cast<char>(GetParam().byte));
  EXPECT_EQ(ChecksumOf(bytes), GetParam().digits);
}

constexpr std::array kSums{
    SumRow{"nothing sums to zero", 0, 0, "0000"},
    SumRow{"letters are capitals", 1, 0xAB, "00AB"},
    SumRow{"bytes above 127 are positive", 3, 0xFF, "02FD"},
    SumRow{"the greatest signed sum", 1057, 31, "7FFF"},
    SumRow{"one beyond the greatest signed sum", 256, 128, "8000"},
    SumRow{"the greatest sum of all", 257, 255, "FFFF"},
    SumRow{"one beyond starts at zero again", 1024, 64, "0000"},
    SumRow{"a long frame keeps the low 16 bits", 1000, 255, "E418"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Checksum, testing::ValuesIn(kSums), unit::BySentence());

TEST(Checksum, OfGrowingFramesIsTheirSumModulo65536) {
  std::string frame;
  unsigned sum = 0;
  for (unsigned i = 0; i < 3000; ++i) {
    const unsigned byte = (i * 7919) % 256;
    frame += static_cast<char>(byte);
    sum = (sum + byte) % 65536;
    std::array<char, 5> digits{};
    (void)std::snprintf(digits.data(), digits.size(), "%04X", sum);
    ASSERT_EQ(ChecksumOf(frame), digits.data()) << i;
  }
}

struct AnswerRow {
  const char* sentence;
  std::string_view received;
  std::size_t length;      // of the answer in front; 0 while it is not whole
  std::string_view head;   // of what was received
  std::string_view whole;  // what is kept of it
};

class ReceivedBytes : public testing::TestWithParam<AnswerRow> {};

TEST_P(ReceivedBytes, KnowWhereTheAnswerEnds) {
  EXPECT_EQ(AnswerLength(GetParam().received), GetParam().length);
}

TEST_P(ReceivedBytes, ShowItsHead) {
  EXPECT_EQ(AnswerHeader(GetParam().received), GetParam().head);
}

TEST_P(ReceivedBytes, AreTrimmedToTheAnswer) {
  EXPECT_EQ(TrimAnswer(GetParam().received), GetParam().whole);
}

constexpr std::array kAnswers{
    AnswerRow{"an answer and nothing else",
              "\x02 K\x1C"
              "0000\x1C"
              "0000\x03"
              "0123",
              18, " K",
              "\x02 K\x1C"
              "0000\x1C"
              "0000\x03"
              "0123"},
    AnswerRow{"an answer after three bytes of noise",
              "xyz\x02 K\x03"
              "0123",
              11, " K",
              "\x02 K\x03"
              "0123"},
    AnswerRow{"an answer with busy bytes before it",
              "\x12\x12\x02 K\x03"
              "0123",
              10, " K",
              "\x02 K\x03"
              "0123"},
    AnswerRow{"an answer with bytes behind its checksum",
              "\x02 K\x03"
              "0123more",
              8, " K",
              "\x02 K\x03"
              "0123"},
    AnswerRow{"two answers at once, of which the first counts",
              "\x02 K\x03"
              "0123\x02!K\x03"
              "4567",
              8, " K",
              "\x02 K\x03"
              "0123"},
    AnswerRow{"an end byte without its checksum", "\x02 K\x03", 0, " K", "\x02 K\x03"},
    AnswerRow{"a checksum that lacks its last character",
              "\x02 K\x03"
              "012",
              0, " K",
              "\x02 K\x03"
              "012"},
    AnswerRow{"an answer whose end is still to come",
              "\x02 K\x1C"
              "00",
              0, " K",
              "\x02 K\x1C"
              "00"},
    AnswerRow{"a checksum that is none", "\x02 K\x03????", 8, " K", "\x02 K\x03????"},
    AnswerRow{"a checksum that holds an end byte",
              "\x02 K\x03"
              "01\x03"
              "3",
              8, " K",
              "\x02 K\x03"
              "01\x03"
              "3"},
    AnswerRow{"a start byte alone", "\x02", 0, "", "\x02"},
    AnswerRow{"a head of one byte", "\x02 ", 0, " ", "\x02 "},
    AnswerRow{"noise alone", "xyz", 0, "", "xyz"},
    AnswerRow{"noise with an end byte in it",
              "xyz\x03"
              "0123",
              8, "",
              "xyz\x03"
              "0123"},
    AnswerRow{"nothing", "", 0, "", ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, ReceivedBytes, testing::ValuesIn(kAnswers), unit::BySentence());

TEST(ReceivedBytes, ByteByByteTheAnswerIsWholeAtItsLastOne) {
  const std::string answer =
      "\x02 K\x1C"
      "0000\x1C"
      "0000\x03"
      "0123";
  for (std::size_t i = 0; i < answer.size(); ++i) {
    EXPECT_EQ(AnswerLength(std::string_view(answer).substr(0, i)), 0u) << i;
  }
  EXPECT_EQ(AnswerLength(answer), answer.size());
}

TEST(Command, IsItsByteAndItsFieldsBehindSeparators) {
  EXPECT_EQ(Command('K').Bytes(), "K");
  EXPECT_EQ(Command('X').Field("261121").Field("103000").Bytes(),
            "X\x1C"
            "261121\x1C"
            "103000");
}

TEST(Command, KeepsEmptyFields) {
  EXPECT_EQ(Command('a').Field("").Field("").Bytes(), "a\x1C\x1C");
}

TEST(Command, WritesNumbersInPlainDecimal) {
  EXPECT_EQ(Command('R').Field(std::int16_t{-1}).Field(1000000).Bytes(),
            "R\x1C-1\x1C"
            "1000000");
}

TEST(Command, KeepsZeroBytesInsideAField) {
  EXPECT_EQ(Command('A').Field({"a\0b", 3}).Bytes(), std::string("A\x1C"
                                                                 "a\0b",
                                                                 5));
}

}  // namespace
}  // namespace kestra
