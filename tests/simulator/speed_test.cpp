// Bytes that leave at one speed and are heard at another. Each row was drawn on squared paper: a
// start bit, eight of data from the lowest, a stop bit, and the middle of each bit of the other side.
#include "wire/speed.hpp"

#include <gtest/gtest.h>

#include "story.hpp"
#include "wire/packet.hpp"

namespace impresora {
namespace {

struct Row {
  std::string_view sent;
  int sent_at, heard_at;
  std::string_view heard;
};

TEST(LineSpeeds, BytesAtAnotherSpeed) {
  const std::vector<Row> rows{
      {"U", 9600, 9600, "U"},
      // A bit too short for a start bit is none.
      {"U", 9600, 4800, ""},
      {"\\x00", 9600, 4800, "\\xF8"},
      // Each bit counts twice; half of it is a second byte.
      {"U", 4800, 9600, "f\\xE6"},
      {"\\x00", 4800, 9600, "\\x00"},
      {"\\xFF", 4800, 9600, "\\xFE"},
      {"\\xFF\\xFF", 4800, 9600, "\\xFE\\xFE"},
      // Three bits of a hundred too fast, and it is heard all the same.
      {"Hola", 9600, 9800, "Hola"},
      {"Hola", 9800, 9600, "Hola"},
      {"", 9600, 300, ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(prueba::Visible(AsHeard(prueba::Unescaped(row.sent), row.sent_at, row.heard_at)),
              row.heard)
        << row.sent << " at " << row.sent_at << ", heard at " << row.heard_at;
  }
}

TEST(LineSpeeds, NeighboursUnderstandEachOther) {
  for (const int baud : {9300, 9500, 9600, 9700, 9900}) EXPECT_TRUE(SoundAlike(9600, baud)) << baud;
  for (const int baud : {4800, 8600, 10'800, 19'200}) EXPECT_FALSE(SoundAlike(9600, baud)) << baud;
}

TEST(LineSpeeds, NoFrameSurvivesAnotherSpeedOfALine) {
  constexpr std::array kSpeeds{1200, 2400, 4800, 9600, 19'200, 38'400, 57'600, 115'200};
  for (const int sent_at : kSpeeds) {
    for (const int heard_at : kSpeeds) {
      const std::string heard = AsHeard(Frame(40, "Y"), sent_at, heard_at);
      PacketDecoder decoder;
      bool understood = false;
      for (const char byte : heard) understood |= decoder.Push(byte).has_value();
      EXPECT_EQ(understood, sent_at == heard_at) << sent_at << " " << heard_at;
    }
  }
}

}  // namespace
}  // namespace impresora
