#include "program/serve.hpp"

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/clock.hpp"
#include "http/desk.hpp"
#include "http/server.hpp"
#include "http/tls.hpp"
#include "outbox/outbox.hpp"
#include "pages/pages.hpp"
#include "program/printer_folder.hpp"
#include "service/hub.hpp"
#include "service/service.hpp"
#include "store/store.hpp"

namespace puerta {
namespace {

constexpr auto kFarewell = std::chrono::milliseconds(300);

using FoundPage = std::optional<std::pair<std::string, std::string>>;

FoundPage PageAt(const std::filesystem::path& till, const std::string& path) {
  constexpr std::string_view kTill = "/caja/";
  if (path.starts_with(kTill)) {
    auto file = till.empty() ? std::nullopt
                             : ReadTillFile(till, std::string_view(path).substr(kTill.size()));
    if (!file) return std::nullopt;
    return std::pair{std::move(file->type), std::move(file->body)};
  }
  const auto page = FindPage(path);
  if (!page) return std::nullopt;
  return std::pair{std::string(page->type), std::string(page->body)};
}

struct Checked {
  std::vector<PrinterSettings> printers = {};
  OutboxSettings outbox = {};
  std::vector<FieldError> errors = {};
};

// What the configuration leads to has to be there before anything is begun.
Checked Check(const Configuration& configuration) {
  Checked checked;
  for (std::size_t i = 0; i < configuration.printers.size(); ++i) {
    const auto& entry = configuration.printers[i];
    auto folder = LookAtFolder(entry.folder, "/impresoras/" + std::to_string(i) + "/carpeta");
    checked.errors.insert(checked.errors.end(), folder.errors.begin(), folder.errors.end());
    checked.printers.push_back(
        {.id = entry.id, .folder = entry.folder.string(), .facts = std::move(folder.facts)});
  }
  if (!configuration.broker.is_null()) {
    checked.outbox = ReadOutboxSettings(configuration.broker, "/mqtt", checked.errors);
  }
  return checked;
}

std::string Brackets(const std::string& address) {
  return address.find(':') == std::string::npos ? address : "[" + address + "]";
}

// All that the door is made of, in the order in which each needs the one before.
class Door {
 public:
  Door(const Configuration& configuration, Checked checked, Loop& loop, Log& log)
      : configuration_(configuration),
        loop_(loop),
        log_(log),
        store_(OpenStore({.path = (configuration.data / "puerta.db").string(),
                          .publishes = !configuration.broker.is_null()})),
        hub_(loop, OwnProgram(), log),
        service_(checked.printers, configuration.most_waiting, *store_, clock_, loop, hub_, log),
        server_(loop, {.address = configuration.address,
                       .port = configuration.port,
                       .connections = configuration.connections,
                       .largest_body = configuration.largest_body}),
        gate_({.secure = configuration.tls.has_value(),
               .port = server_.Port(),
               .names = Names(),
               .origins = configuration.origins}),
        keys_(configuration.tills),
        audit_((configuration.data / "auditoria.log").string(), clock_),
        api_(service_, Settings()),
        desk_(api_, gate_, keys_, audit_, clock_) {
    for (const auto& printer : checked.printers) hub_.Add(printer.id, printer.folder);
    hub_.Listen(service_);
    service_.OnEvents([this] { server_.Wake(); });
    if (!configuration_.broker.is_null()) Publish(checked.outbox);
  }

  void Run() {
    server_.Open(desk_, Wires());
    service_.Start();
    const std::string scheme = configuration_.tls ? "https://" : "http://";
    log_.Write("info", "escuchando",
               {{"direccion",
                 scheme + Brackets(configuration_.address) + ":" + std::to_string(server_.Port())},
                {"version", KESTRA_VERSION}});
    loop_.Run([this](const char* why) { log_.Write("error", "falla", {{"texto", why}}); });
    hub_.Dismiss();
    loop_.Linger(kFarewell);
    log_.Write("info", "terminado", Json::object());
  }

 private:
  std::vector<std::string> Names() const {
    auto names = configuration_.names;
    const bool any = configuration_.address == "0.0.0.0" || configuration_.address == "::";
    if (!any) names.push_back(Brackets(configuration_.address));
    return names;
  }

  ApiSettings Settings() {
    return {.wait = configuration_.wait,
            .version = KESTRA_VERSION,
            .page = [till = configuration_.web_till](
                        const std::string& path) { return PageAt(till, path); },
            .more_metrics = [this] { return OutboxMetrics(); }};
  }

  void Publish(const OutboxSettings& settings) {
    outbox_ = StartOutbox(settings, (configuration_.data / "puerta.db").string(),
                          [this](const std::string& line) {
                            log_.Write("aviso", "mqtt", {{"texto", line}});
                          });
    service_.OnEvents([this] { outbox_->Nudge(); });
  }

  std::string OutboxMetrics() const {
    if (!outbox_) return "";
    const auto state = outbox_->State();
    return "# HELP kestra_puerta_broker El broker contesta\n# TYPE kestra_puerta_broker gauge\n"
           "kestra_puerta_broker " +
           std::to_string(state.connected ? 1 : 0) +
           "\n# HELP kestra_puerta_publicados_total Sucesos que el broker tomó\n"
           "# TYPE kestra_puerta_publicados_total counter\nkestra_puerta_publicados_total " +
           std::to_string(state.delivered) + "\n";
  }

  WireMaker Wires() {
    if (!configuration_.tls) return PlainWires();
    TlsFiles files{.certificate = configuration_.tls->certificate.string(),
                   .key = configuration_.tls->key.string()};
    if (files.certificate.empty()) {
      files = {.certificate = (configuration_.data / "certificado.pem").string(),
               .key = (configuration_.data / "clave.pem").string()};
      EnsureCertificate(files, configuration_.names);
    }
    log_.Write("info", "certificado",
               {{"archivo", files.certificate}, {"huella_sha256", Fingerprint(files.certificate)}});
    return TlsWires(files);
  }

  const Configuration& configuration_;
  Loop& loop_;
  Log& log_;
  SystemClock clock_;
  std::unique_ptr<Store> store_;
  Hub hub_;
  Service service_;
  Server server_;
  Gate gate_;
  KeyRing keys_;
  Audit audit_;
  Api api_;
  Desk desk_;
  std::unique_ptr<Outbox> outbox_;
};

}  // namespace

void TellErrors(const std::vector<FieldError>& errors, Log& log) {
  for (const auto& error : errors) {
    log.Write("error", "configuracion", {{"puntero", error.pointer}, {"mensaje", error.message}});
  }
}

int Serve(const Configuration& configuration, Loop& loop, Log& log) {
  try {
    auto checked = Check(configuration);
    TellErrors(checked.errors, log);
    if (!checked.errors.empty()) return 2;
    std::filesystem::create_directories(configuration.data);
    Door(configuration, std::move(checked), loop, log).Run();
    return 0;
  } catch (const std::exception& error) {
    log.Write("error", "no_arranca", {{"mensaje", error.what()}});
    return 1;
  }
}

}  // namespace puerta
