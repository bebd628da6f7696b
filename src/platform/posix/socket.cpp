#include "platform/seam/socket.hpp"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <memory>

#include "platform/posix/files.hpp"
#include "platform/seam/port_fault.hpp"

namespace kestra {
namespace {

constexpr std::array kOpeningFaults = {
    ErrorRow<int>{ECONNREFUSED, PortFault::kRefused},
    ErrorRow<int>{ECONNRESET, PortFault::kRefused},
    ErrorRow<int>{ETIMEDOUT, PortFault::kNoAnswer},
    ErrorRow<int>{EHOSTUNREACH, PortFault::kUnreachable},
    ErrorRow<int>{ENETUNREACH, PortFault::kUnreachable},
    ErrorRow<int>{EHOSTDOWN, PortFault::kUnreachable},
    ErrorRow<int>{ENETDOWN, PortFault::kUnreachable},
    ErrorRow<int>{EADDRNOTAVAIL, PortFault::kUnreachable},
    ErrorRow<int>{EAFNOSUPPORT, PortFault::kUnreachable},
    ErrorRow<int>{EACCES, PortFault::kNotPermitted},
    ErrorRow<int>{EPERM, PortFault::kNotPermitted},
};

constexpr std::array kTransferFaults = {
    ErrorRow<int>{ECONNRESET, PortFault::kLost},   ErrorRow<int>{EPIPE, PortFault::kLost},
    ErrorRow<int>{ECONNABORTED, PortFault::kLost}, ErrorRow<int>{ETIMEDOUT, PortFault::kLost},
    ErrorRow<int>{EHOSTUNREACH, PortFault::kLost}, ErrorRow<int>{ENETUNREACH, PortFault::kLost},
    ErrorRow<int>{EHOSTDOWN, PortFault::kLost},    ErrorRow<int>{ENETDOWN, PortFault::kLost},
    ErrorRow<int>{ENETRESET, PortFault::kLost},    ErrorRow<int>{ECONNREFUSED, PortFault::kLost},
};

SocketResult OpeningResult(int error) {
  if (error == 0) return {};
  return Failed(FaultIn(kOpeningFaults, error, PortFault::kCannotOpen), error);
}

SocketResult TransferResult(ssize_t count) {
  if (count >= 0) return Moved(static_cast<std::size_t>(count));
  if (errno == EAGAIN || errno == EINTR) return {};
  return Failed(FaultIn(kTransferFaults, errno, PortFault::kTransfer), errno);
}

int Descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

// Frames are small and waited for: none is held back to fill a packet.
void SendAtOnce(int fd) {
  const int yes = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

// 0 when the connection stands or is on its way.
int BeginToConnect(int fd, const SocketAddress& address) {
  sockaddr_storage where = {};
  std::memcpy(&where, address.data(), address.size());
  const auto length = static_cast<socklen_t>(address.size());
  if (::connect(fd, reinterpret_cast<const sockaddr*>(&where), length) == 0) return 0;
  // A signal cuts the call short, not the connecting.
  return errno == EINPROGRESS || errno == EINTR ? 0 : errno;
}

int FamilyOf(const SocketAddress& address) {
  sockaddr where = {};
  std::memcpy(&where, address.data(), sizeof where);
  return where.sa_family;
}

int PendingError(int fd) {
  int error = 0;
  socklen_t length = sizeof error;
  return ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length) == 0 ? error : errno;
}

}  // namespace

Network::Network() noexcept = default;

Network::~Network() = default;

std::vector<SocketAddress> Resolve(const TcpAddress& address) {
  addrinfo hints = {};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV | (address.literal ? AI_NUMERICHOST : 0);
  addrinfo* first = nullptr;
  const std::string port = std::to_string(address.port);
  if (::getaddrinfo(address.host.c_str(), port.c_str(), &hints, &first) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> list(first, &::freeaddrinfo);
  std::vector<SocketAddress> found;
  for (const addrinfo* row = list.get(); row != nullptr; row = row->ai_next) {
    found.emplace_back(reinterpret_cast<const char*>(row->ai_addr), row->ai_addrlen);
  }
  return found;
}

SocketResult Socket::Connect(const SocketAddress& address, std::int32_t milliseconds) {
  Close();
  const int fd =
      OffStandardStreams(FileDescriptor(::socket(FamilyOf(address),
                                                 SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)))
          .Release();
  if (fd < 0) return OpeningResult(errno);
  handle_ = fd;
  SendAtOnce(fd);
  int error = BeginToConnect(fd, address);
  if (error == 0) {
    error = Wait(SocketEvent::kWritable, milliseconds) ? PendingError(fd) : ETIMEDOUT;
  }
  if (error != 0) Close();
  return OpeningResult(error);
}

SocketResult Socket::Send(std::string_view bytes) const {
  return TransferResult(
      ::send(Descriptor(handle_), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT));
}

SocketResult Socket::Receive(char* bytes, std::size_t room) const {
  const ssize_t count = ::recv(Descriptor(handle_), bytes, room, MSG_DONTWAIT);
  if (count == 0) return Failed(PortFault::kLost, 0);
  return TransferResult(count);
}

bool Socket::Wait(SocketEvent event, std::int32_t milliseconds) const {
  using Time = std::chrono::steady_clock;
  const auto end = Time::now() + std::chrono::milliseconds(milliseconds);
  pollfd wait = {.fd = Descriptor(handle_), .events = 0, .revents = 0};
  wait.events = event == SocketEvent::kReadable ? POLLIN : POLLOUT;
  for (;;) {
    const int ready = ::poll(&wait, 1, milliseconds);
    if (ready >= 0 || errno != EINTR) return ready != 0;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Time::now()).count();
    if (left <= 0) return false;
    milliseconds = static_cast<std::int32_t>(left);
  }
}

void Socket::EndSending() const {
  ::shutdown(Descriptor(handle_), SHUT_WR);
}

void Socket::Abort() {
  const linger at_once = {.l_onoff = 1, .l_linger = 0};
  ::setsockopt(Descriptor(handle_), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
  Close();
}

void Socket::Close() {
  if (*this) ::close(Descriptor(std::exchange(handle_, kNone)));
}

}  // namespace kestra
