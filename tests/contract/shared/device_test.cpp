#include <gtest/gtest.h>

#include "base/ansi.hpp"
#include "contract/shared/device_line.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

class SerialDevice : public ::testing::Test {
 protected:
  std::unique_ptr<DeviceLine> line_ = MakeDeviceLine();
  std::unique_ptr<SerialPort> port_ = line_->MakePort();
};

TEST_F(SerialDevice, ALineThatTakesNothingFailsInTheEnd) {
  const auto port = MakeImpatientPort(line_->Device());
  port->PortOpen(true);
  const std::string much(1 << 20, 'x');
  EXPECT_EQ(FailureNumber([&] { port->Output(much); }), 8020);
}

TEST_F(SerialDevice, WithoutASpeedTheDeviceKeepsItsOwn) {
  const auto first = MakeDevicePort(line_->Device(), 57600);
  first->PortOpen(true);
  first->PortOpen(false);
  const auto second = MakeDevicePort(line_->Device(), std::nullopt);
  second->PortOpen(true);
  second->PortOpen(false);
  EXPECT_EQ(SpeedOf(*line_), 57600);
}

TEST_F(SerialDevice, DestroyingAnOpenPortFreesIt) {
  line_->MakePort()->PortOpen(true);
  EXPECT_EQ(FailureNumber([&] { port_->PortOpen(true); }), 0);
}

TEST_F(SerialDevice, WhatCannotBeOpenedIsNamedInWords) {
  const ScratchDirectory scratch;
  WriteFile("archivo", "no es un puerto");
  for (const auto& [device, words] : NoDevices()) {
    const auto port = MakeDevicePort(device, 9600);
    const auto open = [&] { port->PortOpen(true); };
    EXPECT_EQ(FailureNumber(open), 8015) << device;
    EXPECT_EQ(FailureWords(open), words);
    EXPECT_FALSE(port->PortOpen());
  }
  EXPECT_EQ(ReadFile("archivo"), "no es un puerto");
}

TEST_F(SerialDevice, BusyAndLostItIsNamedInWords) {
  line_->Occupy(true);
  EXPECT_EQ(
      FailureWords([&] { port_->PortOpen(true); }),
      "El dispositivo " + line_->Device() + std::string(" está en uso por otro programa"_ansi));
  line_->Occupy(false);
  port_->PortOpen(true);
  line_->Unplug();
  const auto look = [&] {
    for (int looks = 0; looks < 10; ++looks) port_->InBufferCount();
  };
  EXPECT_EQ(FailureWords(look), std::string("Se perdió la conexión con "_ansi) + line_->Device());
}

}  // namespace
}  // namespace kestra
