#include "http/tls.hpp"

#include <boost/asio/ssl/context.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <exception>
#include <stdexcept>

namespace puerta {
namespace {

namespace ssl = boost::asio::ssl;
using Stream = ssl::stream<Wire::Socket>;

class TlsWire : public WireThrough<Stream> {
 public:
  TlsWire(Wire::Socket socket, std::shared_ptr<ssl::context> context)
      : WireThrough(std::move(socket), *context), context_(std::move(context)) {}

  void Open(std::function<void(bool)> done) override {
    Inside().async_handshake(
        ssl::stream_base::server,
        [done = std::move(done)](boost::system::error_code error) { done(!error); });
  }
  Socket& Plug() override { return Inside().next_layer(); }

 private:
  std::shared_ptr<ssl::context> context_;
};

}  // namespace

WireMaker TlsWires(const TlsFiles& files) {
  const auto context = std::make_shared<ssl::context>(ssl::context::tls_server);
  try {
    context->set_options(ssl::context::default_workarounds | ssl::context::no_sslv2 |
                         ssl::context::no_sslv3 | ssl::context::no_tlsv1 |
                         ssl::context::no_tlsv1_1);
    context->use_certificate_chain_file(files.certificate);
    context->use_private_key_file(files.key, ssl::context::pem);
  } catch (const std::exception& error) {
    throw std::runtime_error("el certificado " + files.certificate +
                             " o su clave no sirven: " + error.what());
  }
  return [context](Wire::Socket socket) -> std::unique_ptr<Wire> {
    return std::make_unique<TlsWire>(std::move(socket), context);
  };
}

}  // namespace puerta
