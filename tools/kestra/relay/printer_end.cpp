#include "relay/printer_end.hpp"

#include <array>
#include <string_view>
#include <utility>

#include "command.hpp"
#include "program/serial_device.hpp"
#include "program/tcp_address.hpp"
#include "program/write_queue.hpp"

namespace kestra::tool {
namespace {

using asio::ip::tcp;

constexpr std::string_view kTcp = "tcp:";

// Who speaks to a printer behind a network: connected for as long as it can be, and again when there is something
// to say.
class TcpPrinter : public impresora::Endpoint {
 public:
  TcpPrinter(asio::io_context& loop, impresora::TcpAddress address)
      : loop_(loop), address_(std::move(address)), line_(loop), leaving_(line_) {
    Connect();
  }

  std::string Port() const override {
    return std::string(kTcp) + address_.host + ":" + std::to_string(address_.port);
  }

  void Start(impresora::LineEvents events) override {
    events_ = std::move(events);
    Read();
  }

  void Write(std::string_view bytes) override {
    if (!line_.is_open()) TryAgain();
    if (line_.is_open()) leaving_.Write(bytes);
  }

  void HangUp() override {
    asio::error_code ignored;
    line_.close(ignored);
    leaving_.Clear();
  }

 private:
  void Connect() {
    tcp::resolver resolver(loop_);
    asio::connect(line_, resolver.resolve(address_.host, std::to_string(address_.port)));
    line_.set_option(tcp::no_delay(true));
  }

  void TryAgain() {
    try {
      Connect();
    } catch (const std::system_error&) {
      return HangUp();
    }
    events_.new_host();
    Read();
  }

  void Read() {
    line_.async_read_some(asio::buffer(buffer_), [this](asio::error_code error, std::size_t count) {
      if (error == asio::error::operation_aborted) return;
      if (error) return HangUp();
      events_.arrived({buffer_.data(), count});
      Read();
    });
  }

  asio::io_context& loop_;
  impresora::TcpAddress address_;
  tcp::socket line_;
  impresora::WriteQueue<tcp::socket> leaving_;
  impresora::LineEvents events_;
  std::array<char, 4096> buffer_{};
};

}  // namespace

std::unique_ptr<impresora::Endpoint> MakePrinterEnd(asio::io_context& loop, const std::string& name,
                                                    int baud) {
  if (!name.starts_with(kTcp)) return std::make_unique<impresora::SerialDevice>(loop, name, baud);
  impresora::TcpAddress address;
  if (!impresora::ReadTcpAddress(std::string_view(name).substr(kTcp.size()), address) ||
      address.port == 0)
    throw Stop(Exit::kUsage, "no es una dirección: " + name);
  return std::make_unique<TcpPrinter>(loop, address);
}

}  // namespace kestra::tool
