#include "platform/seam/socket.hpp"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <cstring>
#include <memory>

#include "platform/seam/port_fault.hpp"

namespace kestra {
namespace {

constexpr std::array kOpeningFaults = {
    ErrorRow<int>{WSAECONNREFUSED, PortFault::kRefused},
    ErrorRow<int>{WSAECONNRESET, PortFault::kRefused},
    ErrorRow<int>{WSAETIMEDOUT, PortFault::kNoAnswer},
    ErrorRow<int>{WSAEHOSTUNREACH, PortFault::kUnreachable},
    ErrorRow<int>{WSAENETUNREACH, PortFault::kUnreachable},
    ErrorRow<int>{WSAEHOSTDOWN, PortFault::kUnreachable},
    ErrorRow<int>{WSAENETDOWN, PortFault::kUnreachable},
    ErrorRow<int>{WSAEADDRNOTAVAIL, PortFault::kUnreachable},
    ErrorRow<int>{WSAEAFNOSUPPORT, PortFault::kUnreachable},
    ErrorRow<int>{WSAEACCES, PortFault::kNotPermitted},
};

constexpr std::array kTransferFaults = {
    ErrorRow<int>{WSAECONNRESET, PortFault::kLost},
    ErrorRow<int>{WSAESHUTDOWN, PortFault::kLost},
    ErrorRow<int>{WSAECONNABORTED, PortFault::kLost},
    ErrorRow<int>{WSAETIMEDOUT, PortFault::kLost},
    ErrorRow<int>{WSAEHOSTUNREACH, PortFault::kLost},
    ErrorRow<int>{WSAENETUNREACH, PortFault::kLost},
    ErrorRow<int>{WSAEHOSTDOWN, PortFault::kLost},
    ErrorRow<int>{WSAENETDOWN, PortFault::kLost},
    ErrorRow<int>{WSAENETRESET, PortFault::kLost},
    ErrorRow<int>{WSAENOTCONN, PortFault::kLost},
};

SocketResult OpeningResult(int error) {
  if (error == 0) return {};
  return Failed(FaultIn(kOpeningFaults, error, PortFault::kCannotOpen), error);
}

SocketResult TransferResult(int count) {
  if (count >= 0) return Moved(static_cast<std::size_t>(count));
  const int error = ::WSAGetLastError();
  if (error == WSAEWOULDBLOCK) return {};
  return Failed(FaultIn(kTransferFaults, error, PortFault::kTransfer), error);
}

SOCKET Descriptor(std::intptr_t handle) {
  return static_cast<SOCKET>(handle);
}

// Does not wait, is not inherited, and holds no small frame back to fill a packet.
void SetUp(SOCKET socket) {
  const BOOL yes = TRUE;
  u_long not_blocking = 1;
  ::ioctlsocket(socket, static_cast<long>(FIONBIO), &not_blocking);
  ::SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&yes), sizeof yes);
}

// 0 when the connection stands or is on its way.
int BeginToConnect(SOCKET socket, const SocketAddress& address) {
  sockaddr_storage where = {};
  std::memcpy(&where, address.data(), address.size());
  const int length = static_cast<int>(address.size());
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&where), length) == 0) return 0;
  const int error = ::WSAGetLastError();
  return error == WSAEWOULDBLOCK ? 0 : error;
}

int FamilyOf(const SocketAddress& address) {
  sockaddr where = {};
  std::memcpy(&where, address.data(), sizeof where);
  return where.sa_family;
}

int PendingError(SOCKET socket) {
  int error = 0;
  int length = sizeof error;
  const int done =
      ::getsockopt(socket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length);
  return done == 0 ? error : ::WSAGetLastError();
}

fd_set Only(SOCKET socket) {
  fd_set set = {};
  set.fd_count = 1;
  set.fd_array[0] = socket;
  return set;
}

}  // namespace

Network::Network() noexcept {
  WSADATA data = {};
  error_ = ::WSAStartup(MAKEWORD(2, 2), &data);
}

Network::~Network() {
  if (error_ == 0) ::WSACleanup();
}

std::vector<SocketAddress> Resolve(const TcpAddress& address) {
  addrinfo hints = {};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = address.literal ? AI_NUMERICHOST : 0;
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
  const SOCKET socket = ::socket(FamilyOf(address), SOCK_STREAM, IPPROTO_TCP);
  if (socket == INVALID_SOCKET) return OpeningResult(::WSAGetLastError());
  handle_ = static_cast<std::intptr_t>(socket);
  SetUp(socket);
  int error = BeginToConnect(socket, address);
  if (error == 0) {
    error = Wait(SocketEvent::kWritable, milliseconds) ? PendingError(socket) : WSAETIMEDOUT;
  }
  if (error != 0) Close();
  return OpeningResult(error);
}

SocketResult Socket::Send(std::string_view bytes) const {
  return TransferResult(
      ::send(Descriptor(handle_), bytes.data(), static_cast<int>(bytes.size()), 0));
}

SocketResult Socket::Receive(char* bytes, std::size_t room) const {
  const int count = ::recv(Descriptor(handle_), bytes, static_cast<int>(room), 0);
  if (count == 0) return Failed(PortFault::kLost, 0);
  return TransferResult(count);
}

// A connection that cannot be had is no writable one here, but an exception.
bool Socket::Wait(SocketEvent event, std::int32_t milliseconds) const {
  constexpr std::int32_t kSecond = 1000;
  fd_set wanted = Only(Descriptor(handle_));
  fd_set failed = wanted;
  timeval time = {.tv_sec = milliseconds / kSecond, .tv_usec = milliseconds % kSecond * kSecond};
  return (event == SocketEvent::kReadable ? ::select(0, &wanted, nullptr, nullptr, &time)
                                          : ::select(0, nullptr, &wanted, &failed, &time)) != 0;
}

void Socket::EndSending() const {
  ::shutdown(Descriptor(handle_), SD_SEND);
}

void Socket::Abort() {
  const linger at_once = {.l_onoff = 1, .l_linger = 0};
  ::setsockopt(Descriptor(handle_), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at_once),
               sizeof at_once);
  Close();
}

void Socket::Close() {
  if (*this) ::closesocket(Descriptor(std::exchange(handle_, kNone)));
}

}  // namespace kestra
