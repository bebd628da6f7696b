#include <gtest/gtest.h>

#include "contract/failure_number.hpp"
#include "fields/ansi.hpp"
#include "platform/windows/line_settings.hpp"
#include "platform/windows/serial_port.hpp"

namespace kestra {
namespace {

struct Row {
  const char* why;
  std::int16_t number;
  const char* settings;
  const char* device;
  std::int32_t failure;
};

constexpr Row kRows[] = {
    {"the first port", 1, "9600,N,8,1", "", 0},
    {"the last port", 256, "9600,N,8,1", "", 0},
    {"no port has the number 0", 0, "9600,N,8,1", "", 8002},
    {"nor 257", 257, "9600,N,8,1", "", 8002},
    {"nor a negative one", -1, "9600,N,8,1", "", 8002},
    {"a speed that is none", 1, "9601,N,8,1", "", 380},
    {"a number is looked at before the speed", 0, "9601,N,8,1", "", 8002},
    {"a named device needs no number", 0, "9600,N,8,1", "COM5", 0},
    {"a named device needs no speed", 0, "7,N,8,1", "COM5", 0},
};

TEST(PortSettings, AreCheckedBeforeAnythingIsOpened) {
  for (const Row& row : kRows) {
    const PortSettings settings = {
        .CommPort = row.number, .Settings = row.settings, .dispositivo = row.device};
    EXPECT_EQ(FailureNumber([&] { CreateWindowsPort(settings); }), row.failure) << row.why;
  }
}

TEST(PortSettings, APortOpensTheDeviceOfItsNumber) {
  const auto port =
      CreateWindowsPort({.CommPort = 256, .Settings = "9600,N,8,1", .dispositivo = ""});
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }), "No existe el dispositivo COM256");
}

TEST(PortSettings, ANamedDeviceReplacesTheNumber) {
  const auto port =
      CreateWindowsPort({.CommPort = 1, .Settings = "9600,N,8,1", .dispositivo = "COM255"});
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }), "No existe el dispositivo COM255");
}

TEST(PortSettings, EveryDeviceIsOpenedUnderItsWholeName) {
  EXPECT_EQ(DevicePath("COM1"), R"(\\.\COM1)");
  EXPECT_EQ(DevicePath("COM10"), R"(\\.\COM10)");
  EXPECT_EQ(DevicePath(R"(\\.\COM10)"), R"(\\.\COM10)");
}

TEST(PortSettings, TheLineHasEightBitsNoParityOneStopBitAndNoHandshake) {
  DCB now = {};
  now.BaudRate = 1200;
  now.fOutxCtsFlow = now.fOutxDsrFlow = now.fDsrSensitivity = TRUE;
  now.fOutX = now.fInX = now.fNull = now.fErrorChar = now.fAbortOnError = TRUE;
  now.ByteSize = 7;
  now.Parity = EVENPARITY;
  now.StopBits = TWOSTOPBITS;
  const DCB line = RawLine(now, 19200);
  EXPECT_EQ(line.DCBlength, sizeof line);
  EXPECT_EQ(line.BaudRate, 19200u);
  EXPECT_EQ(line.ByteSize, 8);
  EXPECT_EQ(line.Parity, NOPARITY);
  EXPECT_EQ(line.StopBits, ONESTOPBIT);
  EXPECT_EQ(line.fBinary, 1u);
  EXPECT_EQ(line.fDtrControl, static_cast<unsigned>(DTR_CONTROL_ENABLE));
  EXPECT_EQ(line.fRtsControl, static_cast<unsigned>(RTS_CONTROL_ENABLE));
  EXPECT_EQ(line.fOutxCtsFlow | line.fOutxDsrFlow | line.fDsrSensitivity, 0u);
  EXPECT_EQ(line.fOutX | line.fInX | line.fNull | line.fErrorChar | line.fAbortOnError, 0u);
  EXPECT_EQ(RawLine(now, std::nullopt).BaudRate, 1200u);
}

}  // namespace
}  // namespace kestra
