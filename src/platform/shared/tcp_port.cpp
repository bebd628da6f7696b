#include "platform/shared/tcp_port.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

namespace kestra {

namespace {

constexpr std::string_view kPrefix = "tcp:";
constexpr std::size_t kLongestHost = 253;
constexpr std::string_view kInAddress = ".:%_-";
constexpr std::string_view kInName = "._-";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsHost(std::string_view host, std::string_view marks) {
  if (host.empty() || host.size() > kLongestHost) return false;
  return std::all_of(host.begin(), host.end(), [marks](char c) {
    return IsDigit(c) || IsLetter(c) || marks.find(c) != std::string_view::npos;
  });
}

// 0 when it is no port's number.
std::uint16_t PortOf(std::string_view digits) {
  std::uint16_t port = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, port);
  return error == std::errc() && rest == end ? port : std::uint16_t{0};
}

}  // namespace

bool IsTcp(std::string_view device) {
  if (device.size() < kPrefix.size()) return false;
  return std::equal(kPrefix.begin(), kPrefix.end(), device.begin(),
                    [](char wanted, char c) { return (IsLetter(c) ? c | 0x20 : c) == wanted; });
}

std::optional<TcpAddress> TcpAddressOf(std::string_view device) {
  if (!IsTcp(device)) return std::nullopt;
  device.remove_prefix(kPrefix.size());
  const std::size_t colon = device.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  std::string_view host = device.substr(0, colon);
  const std::uint16_t port = PortOf(device.substr(colon + 1));
  const bool literal = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (literal) host = host.substr(1, host.size() - 2);
  if (port == 0 || !IsHost(host, literal ? kInAddress : kInName)) return std::nullopt;
  return TcpAddress{.host = std::string(host), .port = port, .literal = literal};
}

namespace {

// Longer than any answer; and no more of them than this in one go, whatever the far end pours out.
using Buffer = std::array<char, 4096>;
constexpr int kMostBuffers = 64;

}  // namespace

TcpPort::TcpPort(std::string device, TcpAddress address, PortPatience patience)
    : device_(std::move(device)), address_(std::move(address)), patience_(patience) {}

TcpPort::~TcpPort() {
  Close();
}

void TcpPort::PortOpen(bool open) {
  if (open && PortOpen()) throw PortFailure(PortFault::kAlreadyOpen, device_);
  open ? Open() : Close();
}

void TcpPort::Open() {
  auto connection = std::make_unique<Connection>();
  if (const int error = connection->network.Error(); error != 0) {
    throw PortFailure(PortFault::kCannotOpen, device_, error);
  }
  Dial(connection->socket);
  connection_ = std::move(connection);
}

// Each address has its share of the time, so that one that leads nowhere does not use it up.
void TcpPort::Dial(Socket& socket) {
  const std::vector<SocketAddress> addresses = Addresses();
  const std::int32_t share = patience_.connect / static_cast<std::int32_t>(addresses.size());
  SocketResult result;
  for (const SocketAddress& address : addresses) {
    result = socket.Connect(address, share);
    if (result.fault) continue;
    last_ = address;
    return;
  }
  Throw(result, PortFault::kCannotOpen);
}

// The one that served last goes first: the refusal of another may take a second.
std::vector<SocketAddress> TcpPort::Addresses() const {
  std::vector<SocketAddress> addresses = Resolve(address_);
  if (addresses.empty()) throw PortFailure(PortFault::kUnknownHost, device_);
  const auto found = std::find(addresses.begin(), addresses.end(), last_);
  if (found != addresses.end()) std::rotate(addresses.begin(), found, found + 1);
  return addresses;
}

void TcpPort::Abandon() {
  if (PortOpen()) connection_->socket.Abort();
  connection_.reset();
  received_.clear();
}

void TcpPort::Close() {
  if (PortOpen() && !connection_->end.fault) Farewell();
  connection_.reset();
  received_.clear();
}

// The far end has all of ours, the last acknowledgement too, before it learns of the end; and has hung
// up by the time that the next exchange calls it, for many serve one caller at a time.
void TcpPort::Farewell() const {
  const Socket& socket = connection_->socket;
  Buffer bytes;
  socket.EndSending();
  for (int i = 0; i < kMostBuffers; ++i) {
    if (!socket.Wait(SocketEvent::kReadable, patience_.farewell)) return;
    if (socket.Receive(bytes.data(), bytes.size()).fault) return;
  }
}

void TcpPort::RequireOpen() const {
  if (!PortOpen()) throw PortFailure(PortFault::kNotOpen, device_);
}

// Once lost, a connection stays lost, whatever the system would still take.
void TcpPort::RequireAlive() const {
  RequireOpen();
  if (connection_->end.fault) Throw(connection_->end, PortFault::kTransfer);
}

void TcpPort::Throw(const SocketResult& result, PortFault unexplained) const {
  const PortFault fault = *result.fault;
  throw fault == unexplained ? PortFailure(fault, device_, result.error)
                             : PortFailure(fault, device_);
}

std::size_t TcpPort::Move(const SocketResult& result) {
  if (result.fault) {
    connection_->end = result;
    // Nobody says "in use" on a network: the far end takes the call and hangs up.
    if (result.fault == PortFault::kLost && !connection_->heard) {
      connection_->end.fault = PortFault::kTurnedAway;
    }
    RequireAlive();
  }
  return result.count;
}

std::string_view TcpPort::Take(char* bytes, std::size_t room) {
  const std::size_t count = Move(connection_->socket.Receive(bytes, room));
  if (count > 0) connection_->heard = true;
  return {bytes, count};
}

void TcpPort::Output(std::string_view bytes) {
  RequireAlive();
  DropStale();
  const Socket& socket = connection_->socket;
  while (!bytes.empty()) {
    const std::size_t sent = Move(socket.Send(bytes));
    bytes.remove_prefix(sent);
    if (sent == 0 && !socket.Wait(SocketEvent::kWritable, patience_.stall)) {
      throw PortFailure(PortFault::kStalled, device_);
    }
  }
}

std::size_t TcpPort::InBufferCount() {
  RequireAlive();
  DropStale();
  if (connection_->socket.Wait(SocketEvent::kReadable, patience_.look)) {
    Buffer bytes;
    received_.append(Take(bytes.data(), bytes.size()));
  }
  return received_.size();
}

void TcpPort::DiscardInput() {
  RequireAlive();
  received_.clear();
  connection_->stale = false;
  Buffer bytes;
  for (int i = 0; i < kMostBuffers; ++i) {
    if (Take(bytes.data(), bytes.size()).size() < bytes.size()) return;
  }
}

// A far end may greet its caller, which is no answer.
void TcpPort::DropStale() {
  if (connection_->stale) DiscardInput();
}

std::string TcpPort::Input() {
  RequireOpen();
  return std::exchange(received_, std::string());
}

}  // namespace kestra
