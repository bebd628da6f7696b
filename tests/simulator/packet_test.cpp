#include "wire/packet.hpp"

#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::Body;

std::vector<Event> Decode(PacketDecoder& decoder, std::string_view bytes) {
  std::vector<Event> events;
  for (const char byte : bytes) {
    if (auto event = decoder.Push(byte)) events.push_back(std::move(*event));
  }
  return events;
}

std::vector<Event> Decode(std::string_view bytes) {
  PacketDecoder decoder;
  return Decode(decoder, bytes);
}

TEST(Packet, CutPaperWithTheFirstSequenceSumsToOneHundredAndTwelve) {
  EXPECT_EQ(Frame(32, "K"),
            "\x02 K\x03"
            "0070");
}

TEST(Packet, AFrameBecomesSequenceCommandAndFields) {
  const auto events = Decode(Frame(40, Body({"X", "261121", "103000"})));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, EventKind::kPacket);
  EXPECT_EQ(events[0].packet.sequence, 40);
  EXPECT_EQ(events[0].packet.command, 'X');
  EXPECT_EQ(events[0].packet.fields, (std::vector<std::string>{"261121", "103000"}));
}

TEST(Packet, EmptyFieldsKeepTheirPlace) {
  const auto events = Decode(Frame(40, Body({"d", "", "5", ""})));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].packet.fields, (std::vector<std::string>{"", "5", ""}));
}

TEST(Packet, AFrameMayArriveInAnyPieces) {
  const std::string frame = Frame(33, Body({"]", "1", "KESTRA"}));
  for (std::size_t cut = 0; cut <= frame.size(); ++cut) {
    PacketDecoder decoder;
    const auto before = Decode(decoder, std::string_view(frame).substr(0, cut));
    const auto after = Decode(decoder, std::string_view(frame).substr(cut));
    EXPECT_EQ(before.size() + after.size(), 1U) << "cut at " << cut;
  }
}

struct StreamCase {
  const char* story;
  std::string bytes;
  std::vector<EventKind> events;
};

TEST(Packet, WhatTheDecoderMakesOfAStream) {
  const std::string good = Frame(33, "K");
  const std::string wrong_sum = good.substr(0, good.size() - 1) + "9";
  const std::vector<StreamCase> cases{
      {"nothing but noise", "xyz\x12\x15", {}},
      {"noise before and after a frame", "abc" + good + "xyz", {EventKind::kPacket}},
      {"a wrong checksum", wrong_sum, {EventKind::kDamagedFrame}},
      {"a frame after a damaged one",
       wrong_sum + good,
       {EventKind::kDamagedFrame, EventKind::kPacket}},
      {"a checksum in lower case",
       "\x02 \x1c\x4a\x03"
       "006b",
       {EventKind::kDamagedFrame}},
      {"half a frame and then a whole one", good.substr(0, 3) + good, {EventKind::kPacket}},
      {"a checksum cut short by a new frame",
       good.substr(0, good.size() - 2) + good,
       {EventKind::kPacket}},
      {"a confirmation between two frames",
       good + "\x06" + good,
       {EventKind::kPacket, EventKind::kAck, EventKind::kPacket}},
      {"no command at all", Frame(33, ""), {EventKind::kDamagedFrame}},
      {"a sequence number below the first", Frame(31, "K"), {EventKind::kDamagedFrame}},
      {"the last sequence number", Frame(127, "K"), {EventKind::kPacket}},
      {"an endless frame", "\x02" + std::string(5000, 'a'), {EventKind::kDamagedFrame}},
  };
  for (const StreamCase& c : cases) {
    std::vector<EventKind> kinds;
    for (const Event& event : Decode(c.bytes)) kinds.push_back(event.kind);
    EXPECT_EQ(kinds, c.events) << c.story;
  }
}

TEST(Packet, SomethingOtherThanASeparatorAfterTheCommandIsMarked) {
  const auto events = Decode(Frame(33, "Kx"));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_FALSE(events[0].packet.well_formed);
}

}  // namespace
}  // namespace impresora
