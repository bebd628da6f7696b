#include <gtest/gtest.h>
#include <windows.h>

#include "base/ansi.hpp"
#include "com_line.hpp"
#include "contract/shared/failure_number.hpp"
#include "contract/shared/processor_time.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/serial_port.hpp"
#include "scratch.hpp"

namespace kestra {
namespace {

void ExpectCheap(const Watch& watch) {
  EXPECT_LE(watch.looks, 30);
  EXPECT_LT(watch.cost, 30.0);
}

TEST(WindowsPort, WaitingForASilentPrinterCostsNoProcessor) {
  ComLine line;
  const auto port = line.MakePort();
  port->PortOpen(true);
  ExpectCheap(Watch(*port));
}

TEST(WindowsPort, WaitingWithThreeBytesThereCostsNoProcessorEither) {
  ComLine line;
  const auto port = line.MakePort();
  port->PortOpen(true);
  port->DiscardInput();
  line.Send("\x12\x12\x12");
  ExpectCheap(Watch(*port));
  EXPECT_EQ(port->Waiting(), "\x12\x12\x12");
}

TEST(WindowsPort, ALineThatTakesNothingFailsInTheEnd) {
  ComLine line;
  WindowsPort port(line.Device(), 9600, {.look = 5, .stall = 50});
  port.PortOpen(true);
  const std::string much(1 << 20, 'x');
  EXPECT_EQ(FailureNumber([&] { port.Output(much); }), 8020);
}

TEST(WindowsPort, TheLineHasTheSpeedOfTheSettings) {
  ComLine line;
  {
    WindowsPort port(line.Device(), 57600);
    port.PortOpen(true);
  }
  WindowsPort without_a_speed(line.Device(), std::nullopt);
  without_a_speed.PortOpen(true);
  without_a_speed.PortOpen(false);
  const Handle device(::CreateFileA(DevicePath(line.Device()).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  DCB now = {};
  now.DCBlength = sizeof now;
  ASSERT_TRUE(::GetCommState(device.Get(), &now));
  EXPECT_EQ(now.BaudRate, 57600u);
}

TEST(WindowsPort, ADeviceMayBeGivenWithItsWholeName) {
  ComLine line;
  WindowsPort port(DevicePath(line.Device()), 9600);
  port.PortOpen(true);
  port.Output("x");
  EXPECT_EQ(line.Receive(1), "x");
}

TEST(WindowsPort, DestroyingAnOpenPortFreesTheDevice) {
  ComLine line;
  line.MakePort()->PortOpen(true);
  const auto next = line.MakePort();
  EXPECT_EQ(FailureNumber([&] { next->PortOpen(true); }), 0);
}

TEST(WindowsPort, WhatCannotBeOpenedIsNamedInWords) {
  const ScratchDirectory scratch;
  WriteFileText("archivo", "no es un puerto");
  const std::string file = scratch.Path() + "\\archivo";
  const struct {
    std::string device;
    std::string words;
  } rows[] = {
      {"COM255", "No existe el dispositivo COM255"},
      {"no-hay-tal", "No existe el dispositivo no-hay-tal"},
      {file, file + " no es un puerto serie"},
  };
  for (const auto& row : rows) {
    WindowsPort port(row.device, 9600);
    const auto open = [&] { port.PortOpen(true); };
    EXPECT_EQ(FailureNumber(open), 8015) << row.device;
    EXPECT_EQ(FailureWords(open), row.words);
    EXPECT_FALSE(port.PortOpen());
  }
  EXPECT_EQ(ReadFileText("archivo"), "no es un puerto");
}

TEST(WindowsPort, ABusyDeviceAndALostLineAreNamedInWords) {
  ComLine line;
  const auto port = line.MakePort();
  line.Occupy(true);
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }),
            "El dispositivo " + line.Device() + std::string(" está en uso por otro programa"_ansi));
  line.Occupy(false);
  port->PortOpen(true);
  line.Unplug();
  EXPECT_EQ(FailureWords([&] {
              for (int looks = 0; looks < 10; ++looks) port->InBufferCount();
            }),
            std::string("Se perdió la conexión con "_ansi) + line.Device());
}

TEST(WindowsPort, AClosedPortSaysSo) {
  WindowsPort port("COM1", 9600);
  EXPECT_EQ(FailureNumber([&] { port.Output("x"); }), 8012);
  EXPECT_EQ(FailureWords([&] { port.Input(); }), "El dispositivo COM1 no está abierto"_ansi);
}

TEST(WindowsPort, EachErrorOfTheSystemHasItsMeaning) {
  EXPECT_EQ(OpeningFault(ERROR_FILE_NOT_FOUND), PortFault::kMissing);
  EXPECT_EQ(OpeningFault(ERROR_ACCESS_DENIED), PortFault::kBusy);
  EXPECT_EQ(OpeningFault(ERROR_SHARING_VIOLATION), PortFault::kBusy);
  EXPECT_EQ(OpeningFault(ERROR_GEN_FAILURE), PortFault::kNoHardware);
  EXPECT_EQ(OpeningFault(ERROR_INVALID_FUNCTION), PortFault::kNotSerial);
  EXPECT_EQ(OpeningFault(ERROR_TOO_MANY_OPEN_FILES), PortFault::kCannotOpen);
  EXPECT_EQ(TransferFault(ERROR_BAD_COMMAND), PortFault::kLost);
  EXPECT_EQ(TransferFault(ERROR_DEVICE_NOT_CONNECTED), PortFault::kLost);
  EXPECT_EQ(TransferFault(ERROR_OPERATION_ABORTED), PortFault::kLost);
  EXPECT_EQ(TransferFault(ERROR_GEN_FAILURE), PortFault::kLost);
  EXPECT_EQ(TransferFault(ERROR_ACCESS_DENIED), PortFault::kLost);
  EXPECT_EQ(TransferFault(ERROR_INVALID_PARAMETER), PortFault::kTransfer);
}

}  // namespace
}  // namespace kestra
