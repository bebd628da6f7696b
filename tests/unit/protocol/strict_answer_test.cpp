#include "protocol/strict_answer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "protocol/packet.hpp"

namespace kestra {
namespace {

using namespace std::string_literals;

// The printer's answer to the frame 34, `K`: "in order".
const std::string kAnswer = "\x02\"K\x1C"s + "0080\x1C" + "0600\x03" + "0238";
constexpr std::string_view kHeader = "\"K";

// An answer of these fields; the first is its header.
std::string Summed(const std::vector<std::string>& fields) {
  auto frame = "\x02"s;
  for (const auto& field : fields) frame += field + '\x1C';
  frame.back() = '\x03';
  return frame + ChecksumOf(frame);
}

struct ListenRow {
  const char* name;
  std::string received;
  bool own = false;
  bool busy = false;
  bool refused = false;
  bool damaged = false;
  bool foreign = false;
};

const ListenRow kRows[] = {
    {.name = "nothing yet", .received = ""},
    {.name = "its answer", .received = kAnswer, .own = true},
    {.name = "the beginning of it", .received = kAnswer.substr(0, 9)},
    {.name = "all but its last digit", .received = kAnswer.substr(0, 17)},
    {.name = "busy before it", .received = "\x12\x12" + kAnswer, .own = true, .busy = true},
    {.name = "noise before it", .received = "U" + kAnswer, .own = true, .damaged = true},
    {.name = "a zero byte before it", .received = "\0"s + kAnswer, .own = true, .damaged = true},
    {.name = "a refusal", .received = "\x15", .refused = true},
    {.name = "a start byte too many", .received = "\x02" + kAnswer, .own = true, .damaged = true},
    {.name = "another sum", .received = kAnswer.substr(0, 17) + "9", .damaged = true},
    {.name = "a zero byte that no sum sees",
     .received = Summed({"\"K", "0080", "0600\0"s}),
     .damaged = true},
    {.name = "a busy byte inside",
     .received = Summed({"\"K", "0080\x12", "0600"}),
     .damaged = true},
    {.name = "small letters in its sum",
     .received = "\x02\"K\x1C"s + "0080\x1C" + "0600\x1C" + "I\x03" + "029d",
     .damaged = true},
    {.name = "small letters in a word",
     .received = Summed({"\"K", "008a", "0600"}),
     .damaged = true},
    {.name = "a word of five", .received = Summed({"\"K", "00080", "0600"}), .damaged = true},
    {.name = "one word", .received = Summed({"\"K", "0080"}), .damaged = true},
    {.name = "more fields than any answer has",
     .received = Summed({"\"K", "0080", "0600" + std::string(14, '\x1C')}),
     .damaged = true},
    {.name = "an empty field and its mark",
     .received = Summed({"\"K", "0080", "0600", "", "\x7F"}),
     .own = true},
    {.name = "the mark of an empty field inside a text",
     .received = Summed({"\"K", "0080", "0600", "a\x7F"}),
     .damaged = true},
    {.name = "another number", .received = Summed({"#K", "0080", "0600"}), .foreign = true},
    {.name = "another command", .received = Summed({"\"L", "0080", "0600"}), .foreign = true},
    {.name = "another's answer and then its own",
     .received = Summed({"#K", "0080", "0600"}) + kAnswer,
     .own = true,
     .foreign = true},
    {.name = "a damaged answer and then a good one",
     .received = kAnswer.substr(0, 8) + kAnswer,
     .own = true,
     .damaged = true},
    {.name = "what comes behind it", .received = kAnswer + "\x15\x02U", .own = true},
};

TEST(StrictAnswer, OnlyALegalAnswerToItsOwnFrameCounts) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const auto heard = Listen(row.received, kHeader);
    EXPECT_EQ(!heard.answer.empty(), row.own);
    EXPECT_EQ(heard.busy, row.busy);
    EXPECT_EQ(heard.refused, row.refused);
    EXPECT_EQ(heard.damaged, row.damaged);
    EXPECT_EQ(heard.foreign, row.foreign);
  }
}

TEST(StrictAnswer, NoBitOfItCanTurnOverUnseen) {
  for (std::size_t at = 0; at < kAnswer.size(); ++at) {
    for (unsigned bits = 1; bits < 0x100; ++bits) {
      auto received = kAnswer;
      received[at] = static_cast<char>(static_cast<unsigned char>(received[at]) ^ bits);
      EXPECT_EQ(Listen(received, kHeader).answer, "") << at << " ^ " << bits;
    }
  }
}

TEST(StrictAnswer, NoByteCanBePutIntoItUnseen) {
  for (std::size_t at = 1; at < kAnswer.size(); ++at) {
    for (unsigned byte = 0; byte < 0x100; ++byte) {
      auto received = kAnswer;
      received.insert(at, 1, static_cast<char>(byte));
      const auto answer = Listen(received, kHeader).answer;
      EXPECT_TRUE(answer.empty() || answer == kAnswer) << at << " " << byte;
    }
  }
}

TEST(StrictAnswer, ItsFieldsAreTheWordsAndTheData) {
  const auto fields = FieldsOf(Summed({"\"Y", "0080", "0600", "261121", "103000"}));
  EXPECT_EQ(fields[0], "0080");
  EXPECT_EQ(fields[1], "0600");
  EXPECT_EQ(fields[2], "261121");
  EXPECT_EQ(fields[3], "103000");
  EXPECT_EQ(fields[4], "");
}

TEST(StrictAnswer, AnAnswerMadeOfFieldsIsALegalOne) {
  Fields fields{"0080", "1600", "00000012"};
  const auto answer = AnswerOf(kHeader, fields);
  EXPECT_EQ(Listen(answer, kHeader).answer, answer);
  EXPECT_EQ(FieldsOf(answer), fields);
}

}  // namespace
}  // namespace kestra
