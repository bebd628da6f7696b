#include <stdexcept>

#include "program/endpoints.hpp"
#include "program/posix/pseudo_terminal.hpp"
#include "program/serial_device.hpp"
#include "program/tcp_server.hpp"
#include "wire/speed.hpp"

namespace impresora {

std::unique_ptr<Endpoint> MakeEndpoint(asio::io_context& loop, const Options& options) {
  if (!options.pipe.empty()) throw std::runtime_error("--tuberia es del programa para Windows");
  if (options.tcp) return std::make_unique<TcpServer>(loop, *options.tcp);
  if (!options.device.empty()) {
    return std::make_unique<SerialDevice>(loop, options.device, options.baud);
  }
  // Where the speed matters, a port that nobody has set is as slow as a serial one.
  const bool minds = options.settings.strict && options.baud != 0;
  return std::make_unique<PseudoTerminal>(loop, options.link, minds ? kUsualBaud : 0);
}

}  // namespace impresora
