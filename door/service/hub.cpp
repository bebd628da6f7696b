#include "service/hub.hpp"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <cstddef>
#include <deque>
#include <stdexcept>
#include <utility>

#include "service/loop_inside.hpp"
#include "worker/worker.hpp"

namespace puerta {
namespace {

namespace net = boost::asio;
using boost::system::error_code;
using net::ip::tcp;

constexpr std::size_t kLongestLine = 1 << 20;
constexpr auto kGlance = std::chrono::milliseconds(250);
constexpr auto kAfterFailure = std::chrono::milliseconds(100);

}  // namespace

class Hub::Plug {
 public:
  explicit Plug(Loop& loop)
      : acceptor(loop.In().context, tcp::endpoint(net::ip::address_v4::loopback(), 0)) {}

  tcp::acceptor acceptor;
};

class Hub::Line : public std::enable_shared_from_this<Hub::Line> {
 public:
  Line(Hub& hub, tcp::socket socket) : hub_(hub), socket_(std::move(socket)) {}

  std::string printer;  // empty before it has said its word

  void Read() {
    socket_.async_read_some(net::buffer(buffer_),
                            [self = shared_from_this()](error_code error, std::size_t count) {
                              if (error) return self->hub_.Lost(self);
                              self->waiting_.append(self->buffer_.data(), count);
                              self->Cut();
                            });
  }

  void Send(std::string text) {
    queue_.push_back(std::move(text));
    if (queue_.size() == 1) Write();
  }

  void Close() {
    error_code ignored;
    socket_.close(ignored);
  }

 private:
  void Cut() {
    for (auto end = waiting_.find('\n'); end != std::string::npos; end = waiting_.find('\n')) {
      const auto text = waiting_.substr(0, end);
      waiting_.erase(0, end + 1);
      hub_.Heard(shared_from_this(), text);
    }
    if (waiting_.size() > kLongestLine) return hub_.Lost(shared_from_this());
    if (socket_.is_open()) Read();
  }

  void Write() {
    net::async_write(socket_, net::buffer(queue_.front()),
                     [self = shared_from_this()](error_code error, std::size_t) {
                       if (error) return;
                       self->queue_.pop_front();
                       if (!self->queue_.empty()) self->Write();
                     });
  }

  Hub& hub_;
  tcp::socket socket_;
  std::array<char, 8192> buffer_{};
  std::string waiting_;
  std::deque<std::string> queue_;
};

Hub::Hub(Loop& loop, std::string program, Log& log)
    : loop_(loop), program_(std::move(program)), log_(log), plug_(std::make_unique<Plug>(loop)) {
  Accept();
}

Hub::~Hub() = default;

void Hub::Accept() {
  plug_->acceptor.async_accept([this](error_code error, tcp::socket socket) {
    if (error) return loop_.After(kAfterFailure, [this] { Accept(); });
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    std::make_shared<Line>(*this, std::move(socket))->Read();
    Accept();
  });
}

void Hub::Start(const std::string& printer) {
  Worker worker{.token = RandomDigits(32), .process = nullptr, .line = nullptr};
  const auto port = std::to_string(plug_->acceptor.local_endpoint().port());
  try {
    worker.process =
        StartProcess({.program = program_,
                      .words = {"--trabajador"},
                      .folder = folders_.at(printer),
                      .environment = {std::string(kPortVariable) + "=" + port,
                                      std::string(kTokenVariable) + "=" + worker.token}});
  } catch (const std::runtime_error& error) {
    const std::string why = error.what();
    return loop_.After(kGlance, [this, printer, why] { listener_->OnGone(printer, why); });
  }
  const auto token = worker.token;
  workers_[printer] = std::move(worker);
  Watch(printer, token);
}

void Hub::Watch(const std::string& printer, const std::string& token) {
  loop_.After(kGlance, [this, printer, token] {
    const auto found = workers_.find(printer);
    if (found == workers_.end() || found->second.token != token) return;
    if (found->second.process->HasEnded()) return Gone(printer);
    Watch(printer, token);
  });
}

void Hub::Heard(const std::shared_ptr<Line>& line, const std::string& text) {
  if (line->printer.empty()) return Hello(line, text);
  const auto value = ParseJson(text);
  if (!value || !value->is_object()) {
    log_.Write("error", "trabajador_ininteligible", {{"impresora", line->printer}});
    return Kill(line->printer);
  }
  listener_->OnLine(line->printer, *value);
}

// Whoever does not know a word that was given out is nobody's worker.
void Hub::Hello(const std::shared_ptr<Line>& line, const std::string& text) {
  const auto value = ParseJson(text).value_or(Json());
  const auto token = TextOf(value, "ficha");
  for (auto& [printer, worker] : workers_) {
    if (token.empty() || worker.token != token || worker.line) continue;
    worker.line = line;
    line->printer = printer;
    return;
  }
  log_.Write("aviso", "trabajador_desconocido", Json::object());
  line->Close();
}

// The process may still be there: it ends by itself when it has no door, or is ended.
void Hub::Lost(const std::shared_ptr<Line>& line) {
  line->Close();
  const auto found = workers_.find(line->printer);
  if (found != workers_.end() && found->second.line == line) found->second.process->Kill();
}

void Hub::Gone(const std::string& printer) {
  const auto why = workers_[printer].process->HowItEnded();
  if (workers_[printer].line) workers_[printer].line->Close();
  workers_.erase(printer);
  listener_->OnGone(printer, why);
}

void Hub::Send(const std::string& printer, const Json& line) {
  const auto found = workers_.find(printer);
  if (found != workers_.end() && found->second.line) found->second.line->Send(LineOf(line) + "\n");
}

void Hub::Kill(const std::string& printer) {
  const auto found = workers_.find(printer);
  if (found != workers_.end()) found->second.process->Kill();
}

void Hub::Dismiss() {
  for (const auto& [printer, worker] : workers_) Send(printer, {{"termine", true}});
}

}  // namespace puerta
