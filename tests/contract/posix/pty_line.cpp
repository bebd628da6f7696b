#include "contract/posix/pty_line.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/posix/files.hpp"
#include "platform/posix/serial_port.hpp"

namespace kestra {
namespace {

constexpr int kPatience = 2000;  // milliseconds; only a failing test waits that long

int BytesToRead(int fd) {
  int count = 0;
  ::ioctl(fd, FIONREAD, &count);
  return count;
}

}  // namespace

std::string ReadSome(int fd, std::size_t count) {
  std::string received;
  pollfd wait = {.fd = fd, .events = POLLIN, .revents = 0};
  while (received.size() < count && ::poll(&wait, 1, kPatience) == 1) {
    std::array<char, 4096> bytes{};
    const ssize_t got = ::read(fd, bytes.data(), std::min(bytes.size(), count - received.size()));
    if (got <= 0) break;
    received.append(bytes.data(), static_cast<std::size_t>(got));
  }
  return received;
}

PtyLine::PtyLine() : far_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  ::grantpt(far_.Get());
  ::unlockpt(far_.Get());
  std::array<char, 64> name{};
  EXPECT_EQ(::ptsname_r(far_.Get(), name.data(), name.size()), 0);
  device_ = name.data();
  near_ = OpenFile(device_, O_RDWR | O_NOCTTY);
  EXPECT_TRUE(near_);
  termios raw = {};
  ::tcgetattr(near_.Get(), &raw);
  ::cfmakeraw(&raw);
  ::tcsetattr(near_.Get(), TCSANOW, &raw);
}

std::unique_ptr<SerialPort> PtyLine::MakePort() {
  return std::make_unique<PosixPort>(device_, 9600);
}

// A pseudo-terminal hands bytes over in the background: wait until they are there.
void PtyLine::Send(std::string_view bytes) {
  const int expected = BytesToRead(Near()) + static_cast<int>(bytes.size());
  ASSERT_TRUE(WriteAll(Far(), bytes));
  pollfd wait = {.fd = Near(), .events = POLLIN, .revents = 0};
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
  while (BytesToRead(Near()) < expected && std::chrono::steady_clock::now() < deadline) {
    ::poll(&wait, 1, 1);
  }
  ASSERT_EQ(BytesToRead(Near()), expected);
}

std::string PtyLine::Receive(std::size_t count) {
  return ReadSome(Far(), count);
}

void PtyLine::Occupy(bool taken) {
  occupant_ = taken ? MakePort() : nullptr;
  if (occupant_) occupant_->PortOpen(true);
}

}  // namespace kestra
