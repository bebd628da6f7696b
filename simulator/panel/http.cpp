#include "panel/http.hpp"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/http/chunk_encode.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "panel/gate.hpp"

namespace impresora {
namespace {

namespace net = boost::asio;
namespace http = boost::beast::http;
using boost::system::error_code;
using net::ip::tcp;
using Clock = std::chrono::steady_clock;

constexpr auto kRequestTime = std::chrono::seconds(10);
constexpr auto kWriteTime = std::chrono::seconds(5);
constexpr auto kAfterFailure = std::chrono::milliseconds(100);
constexpr std::string_view kHeadEnd = "\r\n\r\n";

struct Field {
  std::string_view name, value;
};

// Of every answer.
constexpr std::array<Field, 7> kFields{{
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
     "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Cache-Control", "no-store"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Connection", "close"},
}};

std::string Text(boost::beast::string_view text) {
  return {text.data(), text.size()};
}

boost::beast::string_view View(std::string_view text) {
  return {text.data(), text.size()};
}

}  // namespace

std::optional<Request> ReadRequest(std::string_view bytes) {
  http::request_parser<http::string_body> parser;
  parser.header_limit(kLargestHead);
  parser.body_limit(kLargestBody);
  parser.eager(true);
  while (!parser.is_done()) {
    error_code error;
    const std::size_t read = parser.put(net::buffer(bytes.data(), bytes.size()), error);
    if (error || read == 0) return std::nullopt;
    bytes.remove_prefix(read);
  }
  auto& message = parser.get();
  const std::string target = Text(message.target());
  const std::size_t question = std::min(target.find('?'), target.size());
  Request request{.method = Text(message.method_string()),
                  .path = target.substr(0, question),
                  .query = target.substr(std::min(question + 1, target.size())),
                  .last_event_id = std::nullopt,
                  .body = std::move(message.body())};
  const auto known = message.find("Last-Event-ID");
  if (known != message.end()) request.last_event_id = Text(known->value());
  return request;
}

std::string ToBytes(const Response& response, bool without_body) {
  http::response<http::empty_body> head;
  head.result(static_cast<unsigned>(response.status));
  for (const Field& field : kFields) head.insert(View(field.name), View(field.value));
  if (!response.allow.empty()) head.set(http::field::allow, response.allow);
  head.set(http::field::content_type, response.type);
  if (response.stream) {
    head.chunked(true);
  } else {
    head.content_length(response.body.size());
  }
  std::ostringstream bytes;
  bytes << head.base();
  if (!without_body && !response.stream) bytes << response.body;
  return std::move(bytes).str();
}

std::string Chunk(std::string_view text) {
  if (text.empty()) return boost::beast::buffers_to_string(http::make_chunk_last());
  return boost::beast::buffers_to_string(http::make_chunk(net::buffer(text.data(), text.size())));
}

std::string ErrorBody(std::string_view words) {
  return "{\"error\": \"" + std::string(words) + "\"}\n";
}

// Each has a loop of its own, which turns only while its owner waits for something.
class Connection::Socket {
 public:
  tcp::socket& Plug() { return socket_; }

  // What has come by then; nothing, and why, when nothing has.
  std::string_view Read(Clock::time_point until, error_code& error) {
    const std::size_t count = Await(
        [this](auto done) { socket_.async_read_some(net::buffer(buffer_), done); }, until, error);
    return {buffer_.data(), count};
  }

  void Write(std::string_view bytes, Clock::time_point until, error_code& error) {
    const auto buffer = net::buffer(bytes.data(), bytes.size());
    Await([&](auto done) { net::async_write(socket_, buffer, done); }, until, error);
  }

  // What else it may say is of no interest, only that it has not left.
  bool IsThere() {
    if (!watched_) Watch();
    loop_.restart();
    loop_.poll();
    return !gone_;
  }

 private:
  template <class Begin>
  std::size_t Await(Begin begin, Clock::time_point until, error_code& error) {
    bool done = false;
    std::size_t count = 0;
    begin([&](error_code result, std::size_t bytes) {
      done = true;
      error = result;
      count = bytes;
    });
    loop_.restart();
    while (!done && loop_.run_one_until(until) > 0) {
    }
    if (done) return count;
    error_code ignored;
    socket_.cancel(ignored);
    while (!done && loop_.run_one() > 0) {
    }
    error = net::error::timed_out;
    return 0;
  }

  void Watch() {
    watched_ = true;
    socket_.async_read_some(net::buffer(buffer_), [this](error_code error, std::size_t) {
      gone_ = bool(error);
      if (!gone_) Watch();
    });
  }

  net::io_context loop_{1};
  tcp::socket socket_{loop_};
  std::array<char, 4096> buffer_{};
  bool watched_ = false;
  bool gone_ = false;
};

Connection::Connection() : socket_(std::make_unique<Socket>()) {}

Connection::~Connection() = default;

Connection::State Connection::Receive() {
  error_code error;
  waiting_ += socket_->Read(deadline_, error);
  if (error == net::error::timed_out) return State::kLate;
  return error ? State::kGone : State::kWhole;
}

Connection::State Connection::ReadHead(std::string& head, std::size_t largest) {
  deadline_ = Clock::now() + kRequestTime;
  while (true) {
    const std::size_t end = waiting_.find(kHeadEnd);
    if (end != std::string::npos && end + kHeadEnd.size() <= largest) {
      head = waiting_.substr(0, end + kHeadEnd.size());
      waiting_.erase(0, head.size());
      return State::kWhole;
    }
    if (waiting_.size() > largest) return State::kTooLarge;
    if (const State state = Receive(); state != State::kWhole) return state;
  }
}

Connection::State Connection::ReadBody(std::string& body, std::size_t size) {
  while (waiting_.size() < size) {
    if (const State state = Receive(); state != State::kWhole) return state;
  }
  body = waiting_.substr(0, size);
  waiting_.erase(0, size);
  return State::kWhole;
}

bool Connection::Write(std::string_view bytes) {
  error_code error;
  socket_->Write(bytes, Clock::now() + kWriteTime, error);
  return !error;
}

void Connection::Finish(std::chrono::milliseconds moment) {
  error_code error;
  socket_->Plug().shutdown(tcp::socket::shutdown_send, error);
  const auto until = Clock::now() + moment;
  while (!error && Clock::now() < until) socket_->Read(until, error);
}

bool Connection::IsThere() {
  return socket_->IsThere();
}

class Door::Hinge {
 public:
  explicit Hinge(const DoorSettings& settings) {
    const auto found =
        tcp::resolver(loop_).resolve(settings.host, std::to_string(settings.port),
                                     tcp::resolver::passive | tcp::resolver::numeric_service);
    const tcp::endpoint address = *found.begin();
    acceptor_.open(address.protocol());
    if (settings.reuse_port) acceptor_.set_option(tcp::acceptor::reuse_address(true));
    acceptor_.bind(address);
    acceptor_.listen();
  }

  int Port() const { return acceptor_.local_endpoint().port(); }

  void Receive(const std::function<void(std::shared_ptr<Connection>)>& visitor) {
    Accept(visitor);
    loop_.run();
  }

  void Close() { loop_.stop(); }

 private:
  using Visitor = std::function<void(std::shared_ptr<Connection>)>;

  void Accept(const Visitor& visitor) {
    const auto next = std::make_shared<Connection>();
    tcp::socket& socket = next->socket_->Plug();
    acceptor_.async_accept(socket, [this, next, &socket, &visitor](error_code error) {
      if (error) return AcceptLater(visitor);
      socket.set_option(tcp::no_delay(true), error);
      visitor(next);
      Accept(visitor);
    });
  }

  // Out of descriptors, say: better a little later than in a circle.
  void AcceptLater(const Visitor& visitor) {
    pause_.expires_after(kAfterFailure);
    pause_.async_wait([this, &visitor](error_code error) {
      if (!error) Accept(visitor);
    });
  }

  net::io_context loop_{1};
  tcp::acceptor acceptor_{loop_};
  net::steady_timer pause_{loop_};
};

Door::Door(const DoorSettings& settings) {
  try {
    hinge_ = std::make_unique<Hinge>(settings);
  } catch (const std::exception&) {
    throw std::runtime_error("no se puede abrir el panel en " + settings.host + ":" +
                             std::to_string(settings.port) +
                             ": no es una dirección de esta máquina, o está en uso");
  }
}

Door::~Door() = default;

int Door::Port() const {
  return hinge_->Port();
}

void Door::Receive(const std::function<void(std::shared_ptr<Connection>)>& visitor) {
  hinge_->Receive(visitor);
}

void Door::Close() {
  hinge_->Close();
}

}  // namespace impresora
