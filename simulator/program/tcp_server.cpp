#include "program/tcp_server.hpp"

#include <chrono>
#include <utility>

#include "program/cannot_open.hpp"
#include "program/system.hpp"

namespace impresora {
namespace {

using asio::ip::tcp;

constexpr int kMostReads =
    16;  // in a row, so that a host that never pauses does not hold up the loop
constexpr auto kAfterFailure = std::chrono::milliseconds(100);

tcp::endpoint Resolve(asio::io_context& loop, const TcpAddress& address) {
  tcp::resolver resolver(loop);
  const auto found = resolver.resolve(address.host, std::to_string(address.port),
                                      tcp::resolver::passive | tcp::resolver::numeric_service);
  return *found.begin();
}

}  // namespace

TcpServer::TcpServer(asio::io_context& loop, const TcpAddress& address)
    : acceptor_(loop), host_(loop), pause_(loop) {
  try {
    Open(Resolve(loop, address));
  } catch (const std::system_error& error) {
    throw CannotOpen(address.host + ":" + std::to_string(address.port), error.code());
  }
}

void TcpServer::Open(const tcp::endpoint& endpoint) {
  acceptor_.open(endpoint.protocol());
  if (MayReusePorts()) acceptor_.set_option(tcp::acceptor::reuse_address(true));
  acceptor_.bind(endpoint);
  acceptor_.listen();
}

std::string TcpServer::Port() const {
  const tcp::endpoint here = acceptor_.local_endpoint();
  const std::string host = here.address().to_string();
  const std::string shown = here.address().is_v6() ? "[" + host + "]" : host;
  return "tcp:" + shown + ":" + std::to_string(here.port());
}

void TcpServer::Start(LineEvents events) {
  events_ = std::move(events);
  Accept();
}

void TcpServer::Accept() {
  acceptor_.async_accept([this](asio::error_code error, tcp::socket host) {
    if (error == asio::error::operation_aborted) return;
    if (!error) {
      Welcome(std::move(host));
      Accept();
      return;
    }
    // Out of descriptors, say: better a little later than in a circle.
    pause_.expires_after(kAfterFailure);
    pause_.async_wait([this](asio::error_code ended) {
      if (!ended) Accept();
    });
  });
}

// A host that opens the port for each exchange is back before anybody has told that it left.
void TcpServer::Welcome(tcp::socket host) {
  if (host_.is_open()) Drain();
  if (host_.is_open() || occupied_) return;
  asio::error_code ignored;
  host.non_blocking(true, ignored);
  host.set_option(tcp::no_delay(true), ignored);
  host_ = std::move(host);
  ++visit_;
  events_.new_host();
  Listen();
}

void TcpServer::Listen() {
  host_.async_wait(tcp::socket::wait_read, [this, visit = visit_](asio::error_code error) {
    if (error == asio::error::operation_aborted || visit != visit_) return;
    Drain();
    if (host_.is_open()) Listen();
  });
}

// Takes what has come; closes this end when the host has closed its own.
void TcpServer::Drain() {
  asio::error_code error;
  for (int reads = 0; reads < kMostReads && host_.is_open() && !error; ++reads) {
    const std::size_t count = host_.read_some(asio::buffer(buffer_), error);
    if (count > 0) events_.arrived({buffer_.data(), count});
  }
  if (error && error != asio::error::would_block) HangUp();
}

void TcpServer::Write(std::string_view bytes) {
  asio::error_code error;
  while (host_.is_open() && !bytes.empty() && !error) {
    bytes.remove_prefix(host_.write_some(asio::buffer(bytes), error));
  }
}

// Who is here stays until it leaves.
bool TcpServer::Occupy(bool by_another) {
  occupied_ = by_another;
  return true;
}

void TcpServer::HangUp() {
  asio::error_code ignored;
  host_.close(ignored);
}

}  // namespace impresora
