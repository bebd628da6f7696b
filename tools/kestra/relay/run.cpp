#include <charconv>
#include <fstream>
#include <optional>
#include <string>

#include "commands.hpp"
#include "log/source.hpp"
#include "relay/relay.hpp"
#include "settings.hpp"
#include "trace/exchange_json.hpp"
#include "trace/exchange_text.hpp"
#include "trace/recording.hpp"

namespace kestra::tool {
namespace {

[[noreturn]] void Misused(const std::string& words) {
  throw Stop(Exit::kUsage, words + "; ver kestra presenciar --ayuda");
}

int ReadBaud(const Request& request) {
  const auto text = request.Value("--baudios");
  if (!text) return 0;
  int baud = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), baud);
  if (error != std::errc() || end != text->data() + text->size() || baud <= 0)
    Misused("no es una velocidad: " + *text);
  return baud;
}

TillEnd ReadTillEnd(const Request& request) {
  TillEnd till{.link = request.Value("--enlace").value_or(""),
               .tcp = request.Value("--tcp").value_or(""),
               .device = request.Value("--dispositivo").value_or(""),
               .pipe = request.Value("--tuberia").value_or("")};
  int lines = 0;
  for (const std::string* const line : {&till.link, &till.tcp, &till.device, &till.pipe})
    lines += line->empty() ? 0 : 1;
  if (lines > 1)
    Misused("hay que elegir una línea para la caja: --enlace, --tcp, --dispositivo o --tuberia");
  return till;
}

// Without being told, the one that Fiscal.ini names: the till is given another.
std::string ReadPrinter(const Request& request) {
  if (const auto name = request.Value("--impresora")) return *name;
  std::string device = DeviceOf(ReadWay());
  if (device.empty())
    throw Stop(Exit::kBadSettings, "Fiscal.ini no dice el puerto de la impresora; use --impresora");
  return device;
}

// What a recording is told of the printer, of which nothing but its bytes is known.
impresora::Settings NobodyKnows() {
  impresora::Settings settings;
  settings.model = "presenciada";
  return settings;
}

// A line for each exchange, where it was asked for; whoever ends the program finds all that has passed.
class Recording {
 public:
  explicit Recording(const std::optional<std::string>& name) {
    if (!name) return;
    file_.open(PathOf(*name), std::ios::binary);
    if (!file_) throw Stop(Exit::kBroken, "no se puede escribir " + *name);
    recorder_.emplace(NobodyKnows(), [this](std::string_view line) {
      file_ << line << '\n' << std::flush;
    });
  }

  void Keep(const impresora::Exchange& exchange) {
    if (recorder_) recorder_->Exchanged(exchange);
    if (recorder_ && !file_) throw Stop(Exit::kBroken, "la grabación no se puede escribir");
  }

 private:
  std::ofstream file_;
  std::optional<impresora::Recorder> recorder_;
};

}  // namespace

Exit RunRelay(const Request& request, Console& console) {
  const RelaySettings settings{
      .till = ReadTillEnd(request), .printer = ReadPrinter(request), .baud = ReadBaud(request)};
  Recording recording(request.Value("--grabar"));
  const auto ready = [&](const std::string& port) {
    if (!console.WantsJson()) console.Line("Puerto: " + port);
    console.Out().flush();
  };
  const auto exchanged = [&](const impresora::Exchange& exchange) {
    console.Line(console.WantsJson() ? impresora::TraceJson(exchange)
                                     : impresora::Describe(exchange));
    console.Out().flush();
    recording.Keep(exchange);
  };
  try {
    Relay(settings, {.ready = ready, .exchanged = exchanged});
  } catch (const std::system_error& error) {
    throw Stop(Exit::kNoAnswer, error.what());
  }
  return Exit::kGood;
}

}  // namespace kestra::tool
