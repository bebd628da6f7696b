#include "relay/relay.hpp"

#include <asio.hpp>
#include <chrono>
#include <memory>

#include "command.hpp"
#include "program/endpoints.hpp"
#include "program/system.hpp"
#include "program/system_clock.hpp"
#include "relay/printer_end.hpp"
#include "relay/witness.hpp"

namespace kestra::tool {
namespace {

using impresora::Endpoint;
using impresora::Micros;

Micros Now() {
  return std::chrono::duration_cast<Micros>(std::chrono::steady_clock::now().time_since_epoch());
}

std::unique_ptr<Endpoint> MakeTillEnd(asio::io_context& loop, const RelaySettings& settings) {
  impresora::Options options;
  options.link = settings.till.link;
  options.device = settings.till.device;
  options.pipe = settings.till.pipe;
  options.baud = settings.baud;
  if (!settings.till.tcp.empty()) {
    options.tcp.emplace();
    if (!impresora::ReadTcpAddress(settings.till.tcp, *options.tcp))
      throw Stop(Exit::kUsage, "no es una dirección: " + settings.till.tcp);
  }
  return impresora::MakeEndpoint(loop, options);
}

}  // namespace

void Relay(const RelaySettings& settings, const RelayEvents& events) {
  asio::io_context loop;
  asio::signal_set signals(loop);
  for (const int signal : impresora::EndingSignals()) signals.add(signal);
  signals.async_wait([&loop](asio::error_code, int) { loop.stop(); });
  const auto printer = MakePrinterEnd(loop, settings.printer, settings.baud);
  const auto till = MakeTillEnd(loop, settings);
  impresora::SystemClock clock;
  Witness witness(clock, events.exchanged);
  printer->Start({.arrived =
                      [&](std::string_view bytes) {
                        till->Write(bytes);
                        witness.FromPrinter(bytes, Now());
                      },
                  .new_host = [] {}});
  till->Start({.arrived =
                   [&](std::string_view bytes) {
                     printer->Write(bytes);
                     witness.FromTill(bytes, Now());
                   },
               .new_host = [&witness] { witness.Finish(); }});
  events.ready(till->Port());
  loop.run();
  witness.Finish();
}

}  // namespace kestra::tool
