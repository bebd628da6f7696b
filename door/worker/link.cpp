#include "worker/link.hpp"

#include <boost/asio/connect.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace puerta {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using Error = boost::system::error_code;

class TcpLink : public Link {
 public:
  explicit TcpLink(asio::io_context& context) : socket_(context) {}

  bool Connect(const std::string& port) {
    Error error;
    tcp::resolver resolver(socket_.get_executor());
    const auto places = resolver.resolve("127.0.0.1", port, tcp::resolver::numeric_host, error);
    if (!error) asio::connect(socket_, places, error);
    if (!error) socket_.set_option(tcp::no_delay(true), error);
    return !error;
  }

  void Tell(const char* name, Json value) override {
    Error error;
    const std::string line = LineOf(Json{{name, std::move(value)}}) + "\n";
    asio::write(socket_, asio::buffer(line), error);
    gone_ = gone_ || error;
  }

  std::optional<Json> Hear() override {
    Error error;
    const auto length = asio::read_until(socket_, asio::dynamic_buffer(heard_), '\n', error);
    gone_ = gone_ || error;
    if (error) return std::nullopt;
    auto line = Json::parse(heard_.substr(0, length), nullptr, false);
    heard_.erase(0, length);
    return line.is_discarded() ? std::nullopt : std::optional(std::move(line));
  }

  // Looks without waiting and takes nothing.
  bool IsGone() override {
    char byte = 0;
    Error error;
    socket_.non_blocking(true, error);
    socket_.receive(asio::buffer(&byte, 1), tcp::socket::message_peek, error);
    gone_ = gone_ || (error && error != asio::error::would_block);
    socket_.non_blocking(false, error);
    return gone_;
  }

 private:
  tcp::socket socket_;
  std::string heard_;
  bool gone_ = false;
};

}  // namespace

std::unique_ptr<Link> CallDoor(const std::string& port, const std::string& token) {
  static asio::io_context context;
  auto link = std::make_unique<TcpLink>(context);
  if (!link->Connect(port)) return nullptr;
  link->Tell("ficha", token);
  return link;
}

}  // namespace puerta
