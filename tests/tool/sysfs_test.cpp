// What the system's folders tell of serial ports: a machine of files.
#include "posix/sysfs.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace kestra::tool {
namespace {

namespace fs = std::filesystem;

class AMachine : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(root_);
    // An adapter with a serial number, in the second of its folders.
    const std::string usb = "/sys/devices/usb1/1-2";
    Write(usb + "/idVendor", "0403");
    Write(usb + "/manufacturer", "FTDI");
    Write(usb + "/product", "FT232R USB UART");
    Write(usb + "/serial", "A50285BI");
    Port("ttyUSB0", usb + "/1-2:1.0/ttyUSB0");
    Write("/sys/bus/usb-serial/devices/ttyUSB0/latency_timer", "16");
    fs::create_directories(root_ + "/dev/serial/by-id");
    fs::create_symlink("../../ttyUSB0", root_ + "/dev/serial/by-id/usb-FTDI_A50285BI");
    // The board's own: one with a circuit, one without.
    Port("ttyS0", "/sys/devices/platform/serial8250/0");
    Write("/sys/class/tty/ttyS0/type", "4");
    Port("ttyS1", "/sys/devices/platform/serial8250/1");
    Write("/sys/class/tty/ttyS1/type", "0");
    // A console is no port.
    fs::create_directories(root_ + "/sys/class/tty/tty1");
  }

  void TearDown() override { fs::remove_all(root_); }

  void Write(const std::string& file, const std::string& line) const {
    fs::create_directories(fs::path(root_ + file).parent_path());
    std::ofstream(root_ + file) << line << '\n';
  }

  void Port(const std::string& name, const std::string& device) const {
    fs::create_directories(root_ + device);
    fs::create_directories(root_ + "/sys/class/tty/" + name);
    fs::create_symlink(root_ + device, root_ + "/sys/class/tty/" + name + "/device");
  }

  std::string root_ = fs::absolute("machine-" + std::to_string(::getpid())).string();
};

TEST_F(AMachine, HasThePortsWithACircuit) {
  const auto ports = SysfsPorts(root_);
  ASSERT_EQ(ports.size(), 2U);
  EXPECT_EQ(ports[0].device, "/dev/ttyS0");
  EXPECT_EQ(ports[1].device, "/dev/ttyUSB0");
}

TEST_F(AMachine, TellsAnAdaptersNameNumberAndLatency) {
  const auto port = SysfsPort(root_, "ttyUSB0");
  EXPECT_EQ(
      InWords(port),
      "/dev/ttyUSB0: FTDI FT232R USB UART (serie A50285BI), /dev/serial/by-id/usb-FTDI_A50285BI");
  EXPECT_EQ(port.latency, 16);
}

TEST_F(AMachine, HasNothingToTellOfAPlainPort) {
  const auto port = SysfsPort(root_, "ttyS0");
  EXPECT_EQ(InWords(port), "/dev/ttyS0");
  EXPECT_EQ(port.latency, std::nullopt);
}

}  // namespace
}  // namespace kestra::tool
