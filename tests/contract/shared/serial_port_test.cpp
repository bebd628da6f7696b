#include <gtest/gtest.h>

#include <string_view>

#include "contract/shared/device_line.hpp"
#include "contract/shared/processor_time.hpp"
#include "contract/shared/serial_line.hpp"
#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

class SerialPortContract : public ::testing::TestWithParam<Twin<SerialLine>> {
 protected:
  void Open() { port->PortOpen(true); }

  // As an exchange begins.
  void OpenAndDiscard() {
    Open();
    port->DiscardInput();
  }

  // Looks until so many bytes wait, or no more come.
  std::size_t Count(std::size_t wanted) const {
    std::size_t count = port->InBufferCount();
    for (int looks = 0; count < wanted && looks < 100; ++looks) count = port->InBufferCount();
    return count;
  }

  std::unique_ptr<SerialLine> line = GetParam().make();
  std::unique_ptr<SerialPort> port = line->MakePort();
};

std::string EveryByte() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

TEST_P(SerialPortContract, EveryByteValueGoesOutUnchanged) {
  Open();
  port->Output(EveryByte());
  EXPECT_EQ(line->Receive(256), EveryByte());
}

TEST_P(SerialPortContract, EveryByteValueComesInUnchanged) {
  OpenAndDiscard();
  line->Send(EveryByte());
  EXPECT_EQ(Count(256), 256u);
  EXPECT_EQ(port->Input(), EveryByte());
}

TEST_P(SerialPortContract, AnAnswerInPiecesIsCollected) {
  OpenAndDiscard();
  line->Send("uno ");
  EXPECT_EQ(Count(4), 4u);
  line->Send("dos ");
  line->Send("tres");
  EXPECT_EQ(Count(12), 12u);
  EXPECT_EQ(port->Input(), "uno dos tres");
}

TEST_P(SerialPortContract, LookingLeavesTheBytesAndReadingTakesThem) {
  OpenAndDiscard();
  line->Send("abc");
  EXPECT_EQ(Count(3), 3u);
  EXPECT_EQ(port->Waiting(), "abc");
  EXPECT_EQ(port->InBufferCount(), 3u);
  EXPECT_EQ(port->Input(), "abc");
  EXPECT_EQ(port->Waiting(), "");
  EXPECT_EQ(port->Input(), "");
}

TEST_P(SerialPortContract, BytesThatNobodyLookedForAreNotReadYet) {
  OpenAndDiscard();
  line->Send("abc");
  EXPECT_EQ(port->Input(), "");
  EXPECT_EQ(Count(3), 3u);
}

TEST_P(SerialPortContract, ALookAtASilentLineComesBack) {
  Open();
  EXPECT_EQ(port->InBufferCount(), 0u);
}

TEST_P(SerialPortContract, DiscardingDropsWhatWasLookedAtAndWhatWasNot) {
  OpenAndDiscard();
  line->Send("visto");
  EXPECT_EQ(Count(5), 5u);
  line->Send("no visto");
  port->DiscardInput();
  EXPECT_EQ(port->Waiting(), "");
  EXPECT_EQ(port->InBufferCount(), 0u);
}

TEST_P(SerialPortContract, WhatComesAfterDiscardingIsKept) {
  Open();
  line->Send("viejo");
  port->DiscardInput();
  line->Send("nuevo");
  EXPECT_EQ(Count(5), 5u);
  EXPECT_EQ(port->Input(), "nuevo");
}

TEST_P(SerialPortContract, ADeviceInUseIsRefusedAndOpensWhenItIsGivenBack) {
  line->Occupy(true);
  EXPECT_EQ(FailureNumber([&] { Open(); }), GetParam().failure);
  EXPECT_FALSE(port->PortOpen());
  line->Occupy(false);
  Open();
  EXPECT_TRUE(port->PortOpen());
}

TEST_P(SerialPortContract, OpeningAgainDropsWhatCameInBetween) {
  Open();
  port->PortOpen(false);
  EXPECT_FALSE(port->PortOpen());
  line->Send("viejo");
  Open();
  EXPECT_EQ(port->InBufferCount(), 0u);
}

TEST_P(SerialPortContract, TheAnswerToTheFirstWriteIsKept) {
  line->Send("viejo");
  Open();
  port->Output("pregunta");
  line->Send("nuevo");
  EXPECT_EQ(Count(5), 5u);
  EXPECT_EQ(port->Input(), "nuevo");
}

TEST_P(SerialPortContract, OpeningAgainDropsWhatWasNeverRead) {
  OpenAndDiscard();
  line->Send("viejo");
  EXPECT_EQ(Count(5), 5u);
  port->PortOpen(false);
  Open();
  EXPECT_EQ(port->Waiting(), "");
  EXPECT_EQ(port->Input(), "");
}

TEST_P(SerialPortContract, OpeningAnOpenPortFailsAndLeavesItOpen) {
  Open();
  EXPECT_EQ(FailureNumber([&] { Open(); }), 8005);
  port->Output("x");
  EXPECT_EQ(line->Receive(1), "x");
}

TEST_P(SerialPortContract, ClosingAClosedPortDoesNothing) {
  port->PortOpen(false);
  EXPECT_FALSE(port->PortOpen());
}

TEST_P(SerialPortContract, AClosedPortRefusesEverythingElse) {
  EXPECT_NE(FailureNumber([&] { port->Output("x"); }), 0);
  EXPECT_NE(FailureNumber([&] { port->InBufferCount(); }), 0);
  EXPECT_NE(FailureNumber([&] { port->DiscardInput(); }), 0);
  EXPECT_NE(FailureNumber([&] { port->Input(); }), 0);
  EXPECT_EQ(port->Waiting(), "");
}

TEST_P(SerialPortContract, ALineLostInMidExchangeFailsTheLook) {
  Open();
  port->Output("pregunta");
  line->Unplug();
  EXPECT_EQ(FailureNumber([&] { Count(1); }), 8020);
}

TEST_P(SerialPortContract, ALostLineFailsTheWriteAndStillClosesAndDoesNotOpenAgain) {
  Open();
  line->Unplug();
  EXPECT_EQ(FailureNumber([&] { Count(1); }), 8020);
  EXPECT_EQ(FailureNumber([&] { port->Output("x"); }), 8020);
  port->PortOpen(false);
  EXPECT_FALSE(port->PortOpen());
  EXPECT_NE(FailureNumber([&] { Open(); }), 0);
  EXPECT_FALSE(port->PortOpen());
}

INSTANTIATE_TEST_SUITE_P(Twins, SerialPortContract, ::testing::ValuesIn(SerialTwins()),
                         TwinName<SerialLine>);

// ---- What costs time that passes ----

class SystemPortContract : public SerialPortContract {
 protected:
  void ExpectCheapWaiting() {
    const bool device = std::string_view(GetParam().name) == "System";
    const WaitLimits limits = device ? kWaitLimits : WaitLimits{30, 30.0};
    const Watch watch(*port);
    EXPECT_LE(watch.looks, limits.looks);
    EXPECT_LT(watch.cost, limits.processor);
  }
};

TEST_P(SystemPortContract, WaitingForASilentPrinterCostsNoProcessor) {
  Open();
  ExpectCheapWaiting();
}

TEST_P(SystemPortContract, WaitingWithThreeBytesThereCostsNoProcessorEither) {
  OpenAndDiscard();
  line->Send("\x12\x12\x12");
  ExpectCheapWaiting();
  EXPECT_EQ(port->Waiting(), "\x12\x12\x12");
}

INSTANTIATE_TEST_SUITE_P(Twins, SystemPortContract, ::testing::ValuesIn(SystemTwins()),
                         TwinName<SerialLine>);

}  // namespace
}  // namespace kestra
