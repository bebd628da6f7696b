#include "program/serial_device.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <optional>

#include "cables.hpp"
#include "program/posix/descriptor.hpp"

namespace impresora {
namespace {

// A pseudo-terminal stands for the cable: the test is the host at its other end.
class SerialDeviceTest : public testing::Test {
 protected:
  void SetUp() override {
    host_ = Descriptor(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_EQ(grantpt(host_.Get()), 0);
    ASSERT_EQ(unlockpt(host_.Get()), 0);
    device_.emplace(loop_, ptsname(host_.Get()), 19200);
    far_.Start(*device_);
  }

  void Send(std::string_view bytes) const {
    ASSERT_EQ(write(host_.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  std::string Read(std::size_t count) const {
    std::string bytes;
    far_.Until([&] {
      pollfd wait{host_.Get(), POLLIN, 0};
      char byte = 0;
      while (bytes.size() < count && poll(&wait, 1, 0) > 0 && read(host_.Get(), &byte, 1) == 1) {
        bytes += byte;
      }
      return bytes.size() >= count;
    });
    return bytes;
  }

  asio::io_context loop_;
  Descriptor host_;
  std::optional<SerialDevice> device_;
  prueba::FarEnd far_{loop_};
};

TEST_F(SerialDeviceTest, IsOpenedRawWithEightBitsAtItsSpeed) {
  termios mode{};
  ASSERT_EQ(tcgetattr(host_.Get(), &mode), 0);
  EXPECT_EQ(cfgetispeed(&mode), speed_t{B19200});
  EXPECT_EQ(mode.c_cflag & tcflag_t{CSIZE}, tcflag_t{CS8});
  EXPECT_EQ(mode.c_cflag & tcflag_t{PARENB | CSTOPB | CRTSCTS}, 0U);
  EXPECT_EQ(mode.c_iflag & tcflag_t{IXON | IXOFF | ICRNL | ISTRIP}, 0U);
  EXPECT_EQ(mode.c_lflag & tcflag_t{ICANON | ECHO | ISIG}, 0U);
  EXPECT_EQ(mode.c_oflag & tcflag_t{OPOST}, 0U);
}

TEST_F(SerialDeviceTest, EveryByteGoesBothWays) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  Send(all);
  ASSERT_TRUE(far_.UntilArrived(all));
  device_->Write(all.substr(0, 100));
  device_->Write(all.substr(100));
  EXPECT_EQ(Read(256), all);
}

TEST_F(SerialDeviceTest, IsThereAgainASecondAfterHangingUp) {
  device_->HangUp();
  device_->Write("lost");
  ASSERT_TRUE(far_.Until([this] { return far_.hosts == 1; }));
  Send("otra vez");
  EXPECT_TRUE(far_.UntilArrived("otra vez"));
  device_->Write("ok");
  EXPECT_EQ(Read(2), "ok");
}

TEST(SerialDevicesTest, ADeviceThatIsNotThereIsNotHad) {
  asio::io_context loop;
  EXPECT_THROW(SerialDevice(loop, "/nowhere/at/all", 0), std::system_error);
}

}  // namespace
}  // namespace impresora
