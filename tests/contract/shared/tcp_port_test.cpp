#include "platform/shared/tcp_port.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "base/ansi.hpp"
#include "contract/shared/tcp_line.hpp"
#include "fakes/failure_number.hpp"

namespace kestra {

std::unique_ptr<SerialPort> MakeTcpPort(const std::string& device, const PortPatience& patience) {
  return std::make_unique<TcpPort>(device, TcpAddressOf(device).value(), patience);
}

namespace {

constexpr PortPatience kHasty = {.look = 5, .stall = 50, .connect = 200, .farewell = 20};

std::chrono::milliseconds TimeOf(const auto& action) {
  const auto begin = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               begin);
}

// Of some tries the shortest: a busy machine makes some of them long, and what waits all of them.
constexpr int kTries = 20;

std::string WordsOfALook(SerialPort& port) {
  return FailureWords([&] {
    for (int looks = 0; looks < 100; ++looks) port.InBufferCount();
  });
}

// A port that has called.
class TcpCall : public ::testing::Test {
 protected:
  TcpCall() { port->PortOpen(true); }

  TcpLine line;
  std::unique_ptr<SerialPort> port = line.MakePort({});
};

TEST(TcpPort, AnotherNameOfTheMachineServesToo) {
  TcpLine line;
  const auto port = MakeTcpPort(line.DeviceAt(KESTRA_MACHINE_NAME));
  for (int exchange = 0; exchange < 2; ++exchange) {
    port->PortOpen(true);
    port->Output("x");
    EXPECT_EQ(line.Receive(1), "x");
    port->PortOpen(false);
  }
}

TEST(TcpPort, AnAddressWithColonsServesInBrackets) {
  TcpLine line("[::1]");
  if (line.Number() == 0) GTEST_SKIP() << "this machine has no such address";
  const auto port = line.MakePort();
  port->PortOpen(true);
  port->Output("pregunta");
  EXPECT_EQ(line.Receive(8), "pregunta");
  line.Send("respuesta");
  EXPECT_GT(port->InBufferCount(), 0u);
  EXPECT_EQ(port->Input(), "respuesta");
}

TEST(TcpPort, ABracketedNameIsNotLookedUp) {
  const auto port = MakeTcpPort("tcp:[localhost]:4001");
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }),
            "No se conoce el equipo de tcp:[localhost]:4001");
}

TEST(TcpPort, AnUnknownHostIsNamedInWords) {
  const auto port = MakeTcpPort("tcp:no-hay-tal.invalid:4001");
  const auto open = [&] { port->PortOpen(true); };
  EXPECT_EQ(FailureNumber(open), 8015);
  EXPECT_EQ(FailureWords(open), "No se conoce el equipo de tcp:no-hay-tal.invalid:4001");
  EXPECT_FALSE(port->PortOpen());
}

TEST(TcpPort, AServerThatDoesNotListenIsNamedInWords) {
  TcpLine line;
  line.Occupy(true);
  const auto port = line.MakePort();
  const auto open = [&] { port->PortOpen(true); };
  EXPECT_EQ(FailureNumber(open), 8015);
  EXPECT_EQ(FailureWords(open), "Nadie atiende en " + line.Device());
}

TEST(TcpPort, AServerThatDoesNotAnswerIsGivenUp) {
  TcpLine line;
  line.Neglect();
  const auto port = line.MakePort(kHasty);
  const auto open = [&] { port->PortOpen(true); };
  auto least = std::chrono::milliseconds::max();
  for (int tries = 0; tries < kTries && least.count() >= 1000; ++tries) {
    least = std::min(least, TimeOf([&] { EXPECT_EQ(FailureNumber(open), 8015); }));
  }
  EXPECT_GE(least.count(), 190);
  EXPECT_LT(least.count(), 1000);
  EXPECT_EQ(FailureWords(open), "No responde " + line.Device());
  EXPECT_FALSE(port->PortOpen());
}

TEST_F(TcpCall, AServerThatHangsUpOnTheCallerIsLostOrInUse) {
  line.HangUp();
  EXPECT_EQ(WordsOfALook(*port),
            line.Device() + std::string(" cortó la conexión sin contestar: se perdió o está en uso "
                                        "por otro programa"_ansi));
  EXPECT_EQ(FailureNumber([&] { port->Output("x"); }), 8020);
}

TEST_F(TcpCall, AResetIsALostConnection) {
  port->DiscardInput();
  line.Send("re");
  EXPECT_EQ(port->InBufferCount(), 2u);
  line.Reset();
  EXPECT_EQ(WordsOfALook(*port), std::string("Se perdió la conexión con "_ansi) + line.Device());
  EXPECT_EQ(FailureNumber([&] { port->DiscardInput(); }), 8020);
}

TEST_F(TcpCall, WhatCameBeforeTheFarEndHungUpIsRead) {
  port->DiscardInput();
  line.Send("respuesta");
  line.HangUp();
  EXPECT_EQ(port->InBufferCount(), 9u);
  EXPECT_EQ(port->Input(), "respuesta");
  EXPECT_EQ(WordsOfALook(*port), std::string("Se perdió la conexión con "_ansi) + line.Device());
}

TEST_F(TcpCall, AfterALossTheNextCallIsAnswered) {
  line.HangUp();
  EXPECT_NE(WordsOfALook(*port), "");
  port->PortOpen(false);
  port->PortOpen(true);
  port->Output("otra vez");
  EXPECT_EQ(line.Receive(8), "otra vez");
}

TEST_F(TcpCall, TheLastWriteArrivesThoughThePortClosesOverUnreadBytes) {
  port->DiscardInput();
  line.Send("que nadie lee");
  port->Output("\x06");
  port->PortOpen(false);
  EXPECT_EQ(line.Receive(1), "\x06");
}

// What a line takes until it takes no more lies on both sides of it.
TEST(TcpPort, WhatIsAbandonedDoesNotArriveLater) {
  for (const bool abandoned : {false, true}) {
    TcpLine line;
    const auto port = line.MakePort(kHasty);
    port->PortOpen(true);
    const std::string piece(1 << 16, 'x');
    std::size_t taken = 0;
    while (FailureNumber([&] { port->Output(piece); }) == 0) taken += piece.size();
    abandoned ? port->Abandon() : port->PortOpen(false);
    EXPECT_FALSE(port->PortOpen());
    const auto arrived = line.Receive(taken).size();
    EXPECT_EQ(arrived < taken, abandoned) << arrived << " of " << taken;
  }
}

TEST(TcpPort, ClosingHangsUpAndDoesNotWaitForAFarEndThatStays) {
  auto closing = std::chrono::milliseconds::max();
  auto seeing_it = closing;  // the end is seen, not waited for
  const auto too_long = [](auto time) { return time.count() >= 500; };
  for (int tries = 0; tries < kTries && (too_long(closing) || too_long(seeing_it)); ++tries) {
    TcpLine line;
    const auto port = line.MakePort();
    port->PortOpen(true);
    port->Output("x");
    closing = std::min(closing, TimeOf([&] { port->PortOpen(false); }));
    seeing_it = std::min(seeing_it, TimeOf([&] { EXPECT_EQ(line.Receive(2), "x"); }));
  }
  EXPECT_FALSE(too_long(closing)) << closing.count();
  EXPECT_FALSE(too_long(seeing_it)) << seeing_it.count();
}

TEST(TcpPort, ALineThatTakesNothingFailsInTheEnd) {
  TcpLine line;
  const auto port = line.MakePort(kHasty);
  port->PortOpen(true);
  const std::string much(1 << 25, 'x');
  const auto write = [&] { port->Output(much); };
  EXPECT_EQ(FailureWords(write), "El dispositivo " + line.Device() + " no acepta datos");
}

}  // namespace
}  // namespace kestra
