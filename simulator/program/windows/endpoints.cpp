#include <stdexcept>

#include "program/endpoints.hpp"
#include "program/serial_device.hpp"
#include "program/tcp_server.hpp"
#include "program/windows/named_pipe.hpp"

namespace impresora {

// Without a pseudo-terminal to give, a port of TCP is what every program can reach.
std::unique_ptr<Endpoint> MakeEndpoint(asio::io_context& loop, const Options& options) {
  if (!options.link.empty()) throw std::runtime_error("--enlace no existe en Windows; use --tcp");
  if (!options.device.empty()) {
    return std::make_unique<SerialDevice>(loop, options.device, options.baud);
  }
  if (!options.pipe.empty()) return std::make_unique<NamedPipe>(loop, options.pipe);
  return std::make_unique<TcpServer>(loop, options.tcp.value_or(TcpAddress{}));
}

}  // namespace impresora
