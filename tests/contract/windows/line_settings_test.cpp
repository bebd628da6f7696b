#include <gtest/gtest.h>

#include "platform/windows/serial_port.hpp"

namespace kestra {
namespace {

TEST(WindowsLine, EveryDeviceIsOpenedUnderItsWholeName) {
  EXPECT_EQ(DevicePath("COM1"), R"(\\.\COM1)");
  EXPECT_EQ(DevicePath("COM10"), R"(\\.\COM10)");
  EXPECT_EQ(DevicePath(R"(\\.\COM10)"), R"(\\.\COM10)");
}

TEST(WindowsLine, TheLineHasEightBitsNoParityOneStopBitAndNoHandshake) {
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
