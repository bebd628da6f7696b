#include "http/server.hpp"

#include <algorithm>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <stdexcept>
#include <utility>

#include "http/reader.hpp"
#include "service/loop_inside.hpp"

namespace puerta {
namespace {

namespace net = boost::asio;
using boost::system::error_code;
using net::ip::tcp;

constexpr auto kAfterFailure = std::chrono::milliseconds(100);
constexpr auto kBeat = std::chrono::seconds(15);
constexpr auto kLinger = std::chrono::milliseconds(500);

class PlainWire : public WireThrough<Wire::Socket> {
 public:
  explicit PlainWire(Wire::Socket socket) : WireThrough(std::move(socket)) {}

  void Open(std::function<void(bool)> done) override { done(true); }
  Socket& Plug() override { return Inside(); }
};

}  // namespace

WireMaker PlainWires() {
  return [](Wire::Socket socket) -> std::unique_ptr<Wire> {
    return std::make_unique<PlainWire>(std::move(socket));
  };
}

class Server::Inside {
 public:
  Inside(Loop& loop, const ServerSettings& settings) : acceptor(loop.In().context) {
    const tcp::endpoint address(net::ip::make_address(settings.address),
                                static_cast<unsigned short>(settings.port));
    acceptor.open(address.protocol());
    acceptor.set_option(tcp::acceptor::reuse_address(true));
    acceptor.bind(address);
    acceptor.listen();
  }

  tcp::acceptor acceptor;
};

class Server::Connection : public std::enable_shared_from_this<Server::Connection> {
 public:
  Connection(Server& server, std::unique_ptr<Wire> wire, std::string peer)
      : server_(server),
        wire_(std::move(wire)),
        peer_(std::move(peer)),
        timer_(server.loop_.In().context) {}

  void Begin() {
    Allow(server_.settings_.request_time);
    wire_->Open([self = shared_from_this()](bool done) { done ? self->Prepare("") : self->End(); });
  }

  // Nothing of a request is in work: it may be ended for the sake of others.
  bool IsIdle() const { return state_ == State::kReading; }
  bool IsListening() const { return stream_ != nullptr; }

  void Pump() {
    if (!stream_ || writing_) return;
    std::string text;
    try {
      text = stream_->Take();
    } catch (const std::exception&) {
      return End();
    }
    if (!text.empty()) Push(text);
  }

  void Beat() {
    if (stream_ && !writing_) Push(":\n\n");
  }

  void End() {
    if (std::exchange(state_, State::kOver) == State::kOver) return;
    timer_.cancel();
    wire_->Close();
    stream_.reset();
    server_.connections_.remove(shared_from_this());
  }

 private:
  enum class State { kReading, kWorking, kOver };

  void Allow(std::chrono::milliseconds time) {
    timer_.expires_after(time);
    timer_.async_wait([self = shared_from_this()](error_code error) {
      if (!error) self->End();
    });
  }

  void Prepare(const std::string& rest) {
    reader_ = std::make_unique<RequestReader>(server_.settings_.largest_body);
    state_ = State::kReading;
    begun_ = false;
    Allow(server_.settings_.idle_time);
    if (!rest.empty()) return Feed(rest);
    Read();
  }

  void Read() {
    wire_->Read([self = shared_from_this()](std::string_view bytes) {
      if (self->state_ != State::kReading) return;
      bytes.empty() ? self->End() : self->Feed(bytes);
    });
  }

  // From its first byte on a request has its time, however slowly the others come.
  void Feed(std::string_view bytes) {
    if (!std::exchange(begun_, true)) Allow(server_.settings_.request_time);
    const auto state = reader_->Feed(bytes);
    if (state == RequestReader::State::kMore) return Read();
    state_ = State::kWorking;
    timer_.cancel();
    if (state == RequestReader::State::kBad) {
      keep_alive_ = false;
      return Reply(ProblemAnswer(reader_->Refusal()));
    }
    auto request = reader_->Take();
    request.peer = peer_;
    keep_alive_ = request.keep_alive;
    head_ = request.method == "HEAD";
    server_.desk_->Receive(std::move(request), [self = shared_from_this()](Answer answer) {
      net::post(self->timer_.get_executor(),
                [self, answer = std::move(answer)] { self->Reply(answer); });
    });
  }

  void Reply(const Answer& answer) {
    if (state_ != State::kWorking) return;
    if (answer.stream) keep_alive_ = false;
    if (answer.stream && !server_.MayListen()) return End();
    Allow(server_.settings_.write_time);
    wire_->Write(ToBytes(answer, keep_alive_, head_),
                 [self = shared_from_this(), stream = answer.stream](bool done) {
                   if (!done || self->state_ != State::kWorking) return self->End();
                   if (stream && !self->head_) return self->Listen(stream);
                   if (self->keep_alive_) return self->Prepare(self->reader_->Rest());
                   self->Linger();
                 });
  }

  // Bytes that are still on their way would make the system take the answer back.
  void Linger() {
    wire_->Finish();
    Allow(kLinger);
    Drain();
  }

  void Drain() {
    wire_->Read([self = shared_from_this()](std::string_view bytes) {
      bytes.empty() ? self->End() : self->Drain();
    });
  }

  void Listen(std::shared_ptr<Stream> stream) {
    timer_.cancel();
    stream_ = std::move(stream);
    Drain();
    Pump();
  }

  void Push(const std::string& text) {
    writing_ = true;
    Allow(server_.settings_.write_time);
    wire_->Write(ToChunk(text), [self = shared_from_this()](bool done) {
      self->writing_ = false;
      if (!done || !self->stream_) return self->End();
      self->timer_.cancel();
      self->Pump();
    });
  }

  Server& server_;
  std::unique_ptr<Wire> wire_;
  std::string peer_;
  net::steady_timer timer_;
  std::unique_ptr<RequestReader> reader_;
  std::shared_ptr<Stream> stream_;
  State state_ = State::kReading;
  bool begun_ = false, keep_alive_ = false, head_ = false, writing_ = false;
};

Server::Server(Loop& loop, const ServerSettings& settings) : loop_(loop), settings_(settings) {
  try {
    inside_ = std::make_unique<Inside>(loop, settings);
  } catch (const std::exception&) {
    throw std::runtime_error("no se puede escuchar en " + settings.address + ":" +
                             std::to_string(settings.port) +
                             ": no es una dirección de esta máquina, o está en uso");
  }
}

Server::~Server() = default;

int Server::Port() const {
  return inside_->acceptor.local_endpoint().port();
}

void Server::Open(Desk& desk, WireMaker wires) {
  desk_ = &desk;
  wires_ = std::move(wires);
  Accept();
  Beat();
}

// Those who listen stay: they are not to be all that there is room for.
bool Server::MayListen() const {
  const auto listening =
      std::count_if(connections_.begin(), connections_.end(),
                    [](const auto& connection) { return connection->IsListening(); });
  return static_cast<std::size_t>(listening) < settings_.connections / 2;
}

// Whoever has been slow for the longest goes first; those whose request is in work stay.
bool Server::MakeRoom() {
  if (connections_.size() < settings_.connections) return true;
  const auto idle = std::find_if(connections_.begin(), connections_.end(),
                                 [](const auto& connection) { return connection->IsIdle(); });
  if (idle == connections_.end()) return false;
  const auto connection = *idle;
  connection->End();
  return true;
}

void Server::Accept() {
  inside_->acceptor.async_accept([this](error_code error, tcp::socket socket) {
    if (error) return loop_.After(kAfterFailure, [this] { Accept(); });
    error_code failed;
    socket.set_option(tcp::no_delay(true), failed);
    const auto peer = socket.remote_endpoint(failed).address().to_string();
    if (!failed && MakeRoom()) {
      connections_.push_back(std::make_shared<Connection>(*this, wires_(std::move(socket)), peer));
      connections_.back()->Begin();
    }
    Accept();
  });
}

void Server::Wake() {
  const auto all = connections_;
  for (const auto& connection : all) {
    if (connection->IsListening()) connection->Pump();
  }
}

// So that both sides notice when the other one has gone.
void Server::Beat() {
  const auto all = connections_;
  for (const auto& connection : all) connection->Beat();
  loop_.After(kBeat, [this] { Beat(); });
}

}  // namespace puerta
