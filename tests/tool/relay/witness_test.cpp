#include "relay/witness.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "trace/exchange_text.hpp"
#include "wire/packet.hpp"

namespace kestra::tool {
namespace {

using impresora::Frame;
using impresora::Micros;

class Noon : public impresora::WallClock {
 public:
  std::int64_t LocalSeconds() override { return 12 * 3600; }
};

// A till and a printer who talk, with somebody between them.
class WitnessTest : public testing::Test {
 protected:
  void Till(std::string_view bytes) { witness_.FromTill(bytes, now_); }
  void Printer(std::string_view bytes) { witness_.FromPrinter(bytes, now_); }
  void Wait(int milliseconds) { now_ += std::chrono::milliseconds(milliseconds); }
  void Acknowledge() { Till("\x06"); }

  // Numbers, kinds and faults of what has been told.
  std::vector<std::string> Told() {
    std::vector<std::string> lines;
    for (const auto& exchange : exchanges_) {
      std::string line = impresora::Describe(exchange);
      lines.push_back(line.substr(0, line.find(" -> ")) +
                      (line.find(" -> ") == std::string::npos ? "" : " ->"));
    }
    return lines;
  }

  Noon noon_;
  Micros now_{1'000'000};
  std::vector<impresora::Exchange> exchanges_;
  Witness witness_{noon_,
                   [this](const impresora::Exchange& exchange) { exchanges_.push_back(exchange); }};
};

const std::string kCut = Frame(' ', "K");
const std::string kDone = Frame(' ',
                                "K\x1C"
                                "0080\x1C"
                                "0600");

TEST_F(WitnessTest, AnExchangeIsToldWithItsAcknowledgement) {
  Till(kCut);
  Wait(250);
  Printer(kDone);
  EXPECT_TRUE(exchanges_.empty());
  Acknowledge();
  ASSERT_EQ(exchanges_.size(), 1U);
  EXPECT_EQ(exchanges_[0].raw_command, kCut);
  EXPECT_EQ(exchanges_[0].raw_answer, kDone);
  EXPECT_EQ(exchanges_[0].answered_at - exchanges_[0].received_at, std::chrono::milliseconds(250));
  EXPECT_EQ(impresora::Describe(exchanges_[0]),
            "   1 12:00:00  250 ms  32 K  Cortar papel           ok  -> imp 0080 buffer vacío · "
            "fis 0600 en orden");
}

TEST_F(WitnessTest, BytesComeInWhateverPieces) {
  for (const char byte : kCut) Till({&byte, 1});
  Printer("\x12");
  for (const char byte : "\x12" + kDone) Printer({&byte, 1});
  Acknowledge();
  ASSERT_EQ(exchanges_.size(), 1U);
  EXPECT_EQ(exchanges_[0].busy_bytes, 2U);
  EXPECT_EQ(exchanges_[0].raw_answer, kDone);
}

TEST_F(WitnessTest, WhatIsNoAnswerIsToldWithTheNextFrame) {
  Till(kCut);
  Till(kCut);
  Printer("\x15");
  Till(kCut);
  Printer(Frame('!',
                "K\x1C"
                "0080\x1C"
                "0600"));
  Acknowledge();
  Till(kCut);
  Printer(
      "\x02 K\x1Cxx\x03"
      "0000");
  Till(
      "\x02 K\x03"
      "FFFF");
  Till(kCut);
  Printer(kDone);
  witness_.Finish();
  EXPECT_EQ(
      Told(),
      (std::vector<std::string>{
          "   1 12:00:00  0,0 ms  32 K  Cortar papel           --- | falla: sin respuesta",
          "   2 12:00:00  0,0 ms  32 K  Cortar papel           --- | falla: la impresora la "
          "recibió dañada",
          "   3 12:00:00  0,0 ms  32 K  Cortar papel           --- | falla: contestó a otra trama",
          "   4 12:00:00  0,0 ms  32 K  Cortar papel           --- | falla: respuesta dañada",
          "   5 12:00:00  0,0 ms   - -  trama dañada           NAK",
          "   6 12:00:00  0,0 ms  32 K  Cortar papel           ok  ->"}));
}

TEST_F(WitnessTest, AnAcknowledgementOfAnotherAnswerEndsNothing) {
  Till(kCut);
  Printer(Frame('!',
                "K\x1C"
                "0080\x1C"
                "0600"));
  Acknowledge();
  Printer(kDone);
  Acknowledge();
  ASSERT_EQ(exchanges_.size(), 1U);
  EXPECT_EQ(exchanges_[0].kind, impresora::ExchangeKind::kExecuted);
}

TEST_F(WitnessTest, APrinterThatTalksUnaskedIsHeardByNobody) {
  Printer(kDone);
  Acknowledge();
  witness_.Finish();
  EXPECT_TRUE(exchanges_.empty());
}

}  // namespace
}  // namespace kestra::tool
