#include "panel/connection.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

namespace impresora {
namespace {

constexpr auto kRequestTime = std::chrono::seconds(10);
constexpr auto kWriteTime = std::chrono::seconds(5);
constexpr std::string_view kHeadEnd = "\r\n\r\n";

}  // namespace

Connection::Connection(int fd) : fd_(fd), deadline_(Clock::now() + kRequestTime) {}

Connection::~Connection() {
  close(fd_);
}

bool Connection::Wait(short events, Clock::time_point until) const {
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    pollfd fd{fd_, events, 0};
    const int ready = poll(&fd, 1, static_cast<int>(std::max<std::int64_t>(left, 0)));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

ssize_t Connection::Receive(char* data, std::size_t size) {
  if (!Wait(POLLIN, deadline_)) return -1;
  return recv(fd_, data, size, 0);
}

Connection::HeadState Connection::ReadHead(std::string& head, std::size_t largest) {
  while (true) {
    const std::size_t end = waiting_.find(kHeadEnd);
    if (end != std::string::npos && end + kHeadEnd.size() <= largest) {
      head = waiting_.substr(0, end + kHeadEnd.size());
      waiting_.erase(0, head.size());
      return HeadState::kWhole;
    }
    if (waiting_.size() > largest) return HeadState::kTooLarge;
    std::array<char, 4096> buffer{};
    const ssize_t count = Receive(buffer.data(), buffer.size());
    if (count < 0 && Clock::now() >= deadline_) return HeadState::kLate;
    if (count <= 0) return HeadState::kGone;
    waiting_.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

void Connection::Finish(std::chrono::milliseconds moment) {
  shutdown(fd_, SHUT_WR);
  const auto until = Clock::now() + moment;
  std::array<char, 4096> buffer{};
  while (Wait(POLLIN, until) && Clock::now() < until) {
    if (recv(fd_, buffer.data(), buffer.size(), 0) <= 0) return;
  }
}

bool Connection::is_readable() const {
  return !waiting_.empty() || Wait(POLLIN, deadline_);
}

// False as well when the other side has left.
bool Connection::is_writable() const {
  pollfd fd{fd_, POLLOUT | POLLRDHUP, 0};
  return poll(&fd, 1, 0) > 0 && (fd.revents & (POLLERR | POLLHUP | POLLRDHUP)) == 0;
}

ssize_t Connection::read(char* data, std::size_t size) {
  if (waiting_.empty()) return Receive(data, size);
  const std::size_t count = waiting_.copy(data, size);
  waiting_.erase(0, count);
  return static_cast<ssize_t>(count);
}

ssize_t Connection::write(const char* data, std::size_t size) {
  if (!Wait(POLLOUT, Clock::now() + kWriteTime)) return -1;
  return send(fd_, data, size, MSG_NOSIGNAL | MSG_DONTWAIT);
}

// Who asks is of no interest: what a request may do hangs on what it says.
void Connection::get_remote_ip_and_port(std::string& ip, int& port) const {
  ip.clear();
  port = 0;
}

void Connection::get_local_ip_and_port(std::string& ip, int& port) const {
  ip.clear();
  port = 0;
}

}  // namespace impresora
