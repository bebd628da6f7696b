#include "contract/shared/tcp_line.hpp"

#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <vector>

#include "contract/posix/pty_line.hpp"
#include "platform/posix/files.hpp"
#include "platform/seam/socket.hpp"
#include "platform/shared/tcp_port.hpp"

namespace kestra {
namespace {

constexpr int kPatience = 2000;  // milliseconds; only a failing test waits that long
constexpr int kWayOfACall =
    20;  // milliseconds from a caller's side to this one, with time to spare

FileDescriptor NewSocket(const SocketAddress& address, int flags = 0) {
  sockaddr where = {};
  std::memcpy(&where, address.data(), sizeof where);
  return FileDescriptor(::socket(where.sa_family, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

template <typename Call>
int WithAddress(const SocketAddress& address, Call call) {
  sockaddr_storage where = {};
  std::memcpy(&where, address.data(), address.size());
  return call(reinterpret_cast<const sockaddr*>(&where), static_cast<socklen_t>(address.size()));
}

bool HasLeft(int caller) {
  char next = 0;
  return ::recv(caller, &next, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
}

}  // namespace

struct TcpLine::FarEnd {
  SocketAddress address;
  FileDescriptor listener;
  FileDescriptor caller;
  std::vector<FileDescriptor> ringing;

  // False when the machine lacks the address.
  bool Listen(int backlog = 16) {
    listener = NewSocket(address);
    const int yes = 1;
    ::setsockopt(listener.Get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    const int fd = listener.Get();
    return WithAddress(address, [fd](auto... where) { return ::bind(fd, where...); }) == 0 &&
           ::listen(fd, backlog) == 0;
  }

  [[nodiscard]] std::uint16_t Number() {
    sockaddr_storage where = {};
    socklen_t length = sizeof where;
    ::getsockname(listener.Get(), reinterpret_cast<sockaddr*>(&where), &length);
    address.assign(reinterpret_cast<const char*>(&where), length);
    sockaddr_in common = {};  // the number stands in the same place in both families
    std::memcpy(&common, &where, sizeof common);
    return ntohs(common.sin_port);
  }

  // Takes the newest call; the one before it is over.
  int Caller() {
    pollfd wait = {.fd = listener.Get(), .events = POLLIN, .revents = 0};
    while (listener && ::poll(&wait, 1, caller ? 0 : kWayOfACall) == 1) {
      caller = FileDescriptor(::accept4(listener.Get(), nullptr, nullptr, SOCK_CLOEXEC));
    }
    return caller.Get();
  }

  void Ring() {
    ringing.push_back(NewSocket(address, SOCK_NONBLOCK));
    const int fd = ringing.back().Get();
    WithAddress(address, [fd](auto... where) { return ::connect(fd, where...); });
  }
};

TcpLine::TcpLine(const std::string& host) : host_(host), far_end_(std::make_unique<FarEnd>()) {
  const auto address = TcpAddressOf("tcp:" + host + ":1");
  far_end_->address = Resolve(*address).front();
  std::memset(far_end_->address.data() + offsetof(sockaddr_in, sin_port), 0, sizeof(in_port_t));
  if (far_end_->Listen()) number_ = far_end_->Number();
}

TcpLine::~TcpLine() = default;

std::unique_ptr<SerialPort> TcpLine::MakePort(const PortPatience& patience) const {
  return MakeTcpPort(Device(), patience);
}

// They have arrived when none is under way any more.
void TcpLine::Send(std::string_view bytes) {
  const int fd = far_end_->Caller();
  if (fd < 0 || HasLeft(fd)) return;
  ASSERT_TRUE(WriteAll(fd, bytes));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
  int under_way = 1;
  while (under_way > 0 && std::chrono::steady_clock::now() < deadline) {
    ::ioctl(fd, SIOCOUTQ, &under_way);
    if (under_way > 0) ::usleep(500);
  }
  ASSERT_EQ(under_way, 0);
}

std::string TcpLine::Receive(std::size_t count) {
  return ReadSome(far_end_->Caller(), count);
}

void TcpLine::Occupy(bool taken) {
  far_end_->listener.Close();
  if (taken) return;
  ASSERT_TRUE(far_end_->Listen());
}

void TcpLine::Unplug() {
  HangUp();
  far_end_->listener.Close();
}

void TcpLine::HangUp() {
  far_end_->Caller();
  far_end_->caller.Close();
}

void TcpLine::Reset() {
  const linger at_once = {.l_onoff = 1, .l_linger = 0};
  ::setsockopt(far_end_->Caller(), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
  HangUp();
}

// A queue of callers that is full: the system lets the next ones ring.
void TcpLine::Neglect() {
  far_end_->listener.Close();
  ASSERT_TRUE(far_end_->Listen(0));
  for (int i = 0; i < 4; ++i) far_end_->Ring();
}

}  // namespace kestra
