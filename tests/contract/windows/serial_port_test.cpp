#include <gtest/gtest.h>
#include <windows.h>

#include "contract/windows/com_line.hpp"
#include "platform/windows/serial_port.hpp"

namespace kestra {
namespace {

TEST(WindowsPort, ADeviceMayBeGivenWithItsWholeName) {
  ComLine line;
  WindowsPort port(DevicePath(line.Device()), 9600);
  port.PortOpen(true);
  port.Output("x");
  EXPECT_EQ(line.Receive(1), "x");
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
