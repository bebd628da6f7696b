#include "platform/shared/tcp_port.hpp"

#include <gtest/gtest.h>

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
  const auto time = TimeOf([&] { EXPECT_EQ(FailureNumber(open), 8015); });
  EXPECT_GE(time.count(), 190);
  EXPECT_LT(time.count(), 1000);
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

TEST_F(TcpCall, ClosingHangsUpAndDoesNotWaitForAFarEndThatStays) {
  port->Output("x");
  EXPECT_LT(TimeOf([&] { port->PortOpen(false); }).count(), 500);
  const auto time = TimeOf([&] { EXPECT_EQ(line.Receive(2), "x"); });
  EXPECT_LT(time.count(), 500);  // the end is seen, not waited for
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
