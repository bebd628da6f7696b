// What goes around a command, and what is found in the bytes that come back.

#include "protocol/packet.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "golden/frame_check.hpp"
#include "protocol/command.hpp"

namespace kestra {
namespace {

TEST(Packet, AFrameIsStartNumberCommandEnd) {
  EXPECT_EQ(BuildPacket(32, "K"), "\x02 K\x03");
  EXPECT_EQ(BuildPacket(70, "*\x1C\x41"), "\x02\x46*\x1C\x41\x03");
  EXPECT_EQ(BuildPacket(40, ""), "\x02(\x03");
  // One that is sent again is framed again.
  EXPECT_EQ(BuildPacket(41, BuildPacket(40, "K")), "\x02)\x02(K\x03\x03");
}

TEST(Checksum, CuttingPaperWithNumber32Sums112) {
  EXPECT_EQ(ChecksumOf(BuildPacket(32, "K")), "0070");
}

constexpr struct {
  const char* sentence;
  std::size_t count;  // of bytes
  unsigned char byte;
  std::string_view digits;
} kSums[] = {
    {"nothing sums to zero", 0, 0, "0000"},
    {"letters are capitals", 1, 0xAB, "00AB"},
    {"bytes above 127 are positive", 3, 0xFF, "02FD"},
    {"the greatest signed sum", 1057, 31, "7FFF"},
    {"one beyond the greatest signed sum", 256, 128, "8000"},
    {"the greatest sum of all", 257, 255, "FFFF"},
    {"one beyond starts at zero again", 1024, 64, "0000"},
    {"a long frame keeps the low 16 bits", 1000, 255, "E418"},
};

TEST(Checksum, HasFourDigits) {
  for (const auto& row : kSums) {
    SCOPED_TRACE(row.sentence);
    const std::string bytes(row.count, static_cast<char>(row.byte));
    EXPECT_EQ(ChecksumOf(bytes), row.digits);
  }
}

TEST(Checksum, OfGrowingFramesIsTheirSumModulo65536) {
  std::string frame;
  for (unsigned i = 0; i < 3000; ++i) {
    frame += static_cast<char>((i * 7919) % 256);
    ASSERT_EQ(ChecksumOf(frame), golden::Checksum(frame)) << i;
  }
}

#define STX "\x02"
#define ETX "\x03"
#define FS "\x1C"

constexpr struct {
  const char* sentence;
  std::string_view received;
  std::size_t length;      // of the answer in front; 0 while it is not whole
  std::string_view head;   // of what was received
  std::string_view whole;  // what is kept of it
} kAnswers[] = {
    {"an answer and nothing else", STX " K" FS "0000" FS "0000" ETX "0123", 18, " K",
     STX " K" FS "0000" FS "0000" ETX "0123"},
    {"an answer after three bytes of noise", "xyz" STX " K" ETX "0123", 11, " K",
     STX " K" ETX "0123"},
    {"an answer with busy bytes before it", "\x12\x12" STX " K" ETX "0123", 10, " K",
     STX " K" ETX "0123"},
    {"an answer with bytes behind its checksum", STX " K" ETX "0123more", 8, " K",
     STX " K" ETX "0123"},
    {"two answers at once, of which the first counts", STX " K" ETX "0123" STX "!K" ETX "4567", 8,
     " K", STX " K" ETX "0123"},
    {"an end byte without its checksum", STX " K" ETX, 0, " K", STX " K" ETX},
    {"a checksum that lacks its last character", STX " K" ETX "012", 0, " K", STX " K" ETX "012"},
    {"an answer whose end is still to come", STX " K" FS "00", 0, " K", STX " K" FS "00"},
    {"a checksum that is none", STX " K" ETX "????", 8, " K", STX " K" ETX "????"},
    {"a checksum that holds an end byte", STX " K" ETX "01" ETX "3", 8, " K",
     STX " K" ETX "01" ETX "3"},
    {"a start byte alone", STX, 0, "", STX},
    {"a head of one byte", STX " ", 0, " ", STX " "},
    {"noise alone", "xyz", 0, "", "xyz"},
    {"noise with an end byte in it", "xyz" ETX "0123", 8, "", "xyz" ETX "0123"},
    {"nothing", "", 0, "", ""},
};

TEST(ReceivedBytes, KnowWhereTheAnswerEndsShowItsHeadAndAreTrimmedToIt) {
  for (const auto& row : kAnswers) {
    EXPECT_EQ(AnswerLength(row.received), row.length) << row.sentence;
    EXPECT_EQ(AnswerHeader(row.received), row.head) << row.sentence;
    EXPECT_EQ(TrimAnswer(row.received), row.whole) << row.sentence;
  }
}

TEST(ReceivedBytes, ByteByByteTheAnswerIsWholeAtItsLastOne) {
  const std::string answer = STX " K" FS "0000" FS "0000" ETX "0123";
  for (std::size_t i = 0; i < answer.size(); ++i) {
    EXPECT_EQ(AnswerLength(std::string_view(answer).substr(0, i)), 0u) << i;
  }
  EXPECT_EQ(AnswerLength(answer), answer.size());
}

TEST(Command, IsItsByteAndItsFieldsBehindSeparators) {
  EXPECT_EQ(Command('K').Bytes(), "K");
  EXPECT_EQ(Command('X').Field("261121").Field("103000").Bytes(), "X" FS "261121" FS "103000");
  EXPECT_EQ(Command('a').Field("").Field("").Bytes(), "a" FS FS);
  EXPECT_EQ(Command('R').Field(std::int16_t{-1}).Field(1000000).Bytes(), "R" FS "-1" FS "1000000");
  EXPECT_EQ(Command('A').Field({"a\0b", 3}).Bytes(), std::string("A" FS "a\0b", 5));
}

#undef FS
#undef ETX
#undef STX

}  // namespace
}  // namespace kestra
