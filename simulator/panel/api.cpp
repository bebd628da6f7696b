#include "panel/api.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "panel/event_json.hpp"
#include "panel/state_json.hpp"
#include "panel/web_files.hpp"
#include "pictures/drawing.hpp"
#include "pictures/paper_folder.hpp"
#include "pictures/svg.hpp"

namespace impresora {
namespace {

constexpr const char* kPlainText = "text/plain; charset=utf-8";
constexpr const char* kJson = "application/json; charset=utf-8";

// An address; N stands for a number of up to nine digits.
struct Route {
  std::string_view method;
  std::string_view path;
  void (Api::*run)(const Api::Call&);
};

constexpr std::array<Route, 31> kRoutes{{
    {"GET", "/", &Api::Page},
    {"GET", "/panel.css", &Api::Page},
    {"GET", "/panel.js", &Api::Page},
    {"GET", "/trace.js", &Api::Page},
    {"GET", "/figures.js", &Api::Page},
    {"GET", "/shop.js", &Api::Page},
    {"GET", "/icono.svg", &Api::Page},
    {"GET", "/api/estado", &Api::State},
    {"GET", "/api/papel", &Api::PaperText},
    {"DELETE", "/api/papel", &Api::TearPaper},
    {"GET", "/api/papel.json", &Api::PaperLines},
    {"GET", "/api/documentos", &Api::Documents},
    {"GET", "/api/documentos/N/papel", &Api::DocumentText},
    {"GET", "/api/documentos/N/papel.svg", &Api::DocumentPicture},
    {"GET", "/api/traza", &Api::Exchanges},
    {"GET", "/api/controles", &Api::GetControls},
    {"POST", "/api/controles", &Api::SetControls},
    {"GET", "/api/fallas", &Api::GetFaults},
    {"POST", "/api/fallas", &Api::AddFaults},
    {"DELETE", "/api/fallas", &Api::RemoveAllFaults},
    {"DELETE", "/api/fallas/N", &Api::RemoveFault},
    {"POST", "/api/reiniciar", &Api::PowerCycle},
    {"POST", "/api/verificar", &Api::Check},
    {"GET", "/api/caja", &Api::Till},
    {"GET", "/api/comandos", &Api::Commands},
    {"GET", "/api/escenas", &Api::GetScenes},
    {"POST", "/api/escenas", &Api::PlayScene},
    {"GET", "/api/grabacion", &Api::RecordingStatus},
    {"POST", "/api/grabacion", &Api::Record},
    {"GET", "/api/grabacion.jsonl", &Api::RecordingText},
    {"GET", "/api/traza.txt", &Api::TraceText},
}};

constexpr Route kEvents{"GET", "/api/eventos", &Api::Events};

// The text through its next slash.
std::string_view NextPiece(std::string_view& text) {
  const std::size_t slash = text.find('/');
  const std::string_view piece = text.substr(0, slash);
  text.remove_prefix(slash == std::string_view::npos ? text.size() : slash + 1);
  return piece;
}

std::optional<unsigned> ReadCount(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (text.size() > kMostDigits || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

// The value of the first of that name, or nothing.
std::string_view Parameter(std::string_view query, std::string_view name) {
  while (!query.empty()) {
    std::string_view part = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(part.size() + 1, query.size()));
    const std::size_t equals = std::min(part.find('='), part.size());
    if (part.substr(0, equals) == name) return part.substr(std::min(equals + 1, part.size()));
  }
  return {};
}

bool Matches(std::string_view pattern, std::string_view path, unsigned& number) {
  if (pattern == path) return true;
  if (std::count(pattern.begin(), pattern.end(), '/') !=
      std::count(path.begin(), path.end(), '/')) {
    return false;
  }
  while (!pattern.empty()) {
    const std::string_view wanted = NextPiece(pattern);
    const std::string_view found = NextPiece(path);
    if (wanted == found) continue;
    const auto count = wanted == "N" ? ReadCount(found) : std::nullopt;
    if (!count) return false;
    number = *count;
  }
  return path.empty();
}

}  // namespace

Api::Api(PanelHost host, History& history, KeptRecording& recording, Feed& feed, LoopCalls& loop)
    : host_(std::move(host)),
      session_(host_.session),
      history_(history),
      recording_(recording),
      feed_(feed),
      loop_(loop) {}

void Api::Handle(const Request& request, Response& response) {
  const std::string_view asked = request.method;
  const std::string_view method = asked == "HEAD" ? "GET" : asked;
  std::string allowed;
  const auto try_route = [&](const Route& route) {
    Call call{request, response, 0};
    if (!Matches(route.path, request.path, call.number)) return false;
    if (route.method == method) return (this->*route.run)(call), true;
    allowed += (allowed.empty() ? "" : ", ") + std::string(route.method);
    return false;
  };
  if (asked != "HEAD" && try_route(kEvents)) return;
  for (const Route& route : kRoutes) {
    if (try_route(route)) return;
  }
  response.status = allowed.empty() ? 404 : 405;
  response.allow = allowed;
  response.body = ErrorBody(allowed.empty() ? "no hay nada aquí" : "método no admitido aquí");
  response.type = kJson;
}

void Api::Answer(const Call& call, std::function<Reply()> question) {
  Reply reply;
  try {
    reply = loop_.Ask<Reply>(std::move(question));
  } catch (const LoopGone& error) {
    reply = {.status = 503, .body = ErrorBody(error.what())};
  } catch (const std::exception& error) {
    reply = {.status = 500, .body = OneLine({{"error", error.what()}}) + "\n"};
  }
  call.response.status = reply.status;
  call.response.body = std::move(reply.body);
  call.response.type = reply.type;
}

void Api::Page(const Call& call) {
  for (const WebFile& file : WebFiles()) {
    if (file.path != call.request.path) continue;
    call.response.body = file.content;
    call.response.type = file.type;
  }
}

Api::Reply Api::StateReply() {
  Json state = StateJson(session_, history_);
  state["grabacion"] = recording_.Status();
  return {.body = OneLine(state) + "\n"};
}

void Api::State(const Call& call) {
  Answer(call, [this] { return StateReply(); });
}

void Api::PaperText(const Call& call) {
  Answer(call, [this] {
    const std::vector<PaperLine> lines(history_.Roll().begin(), history_.Roll().end());
    const std::size_t columns = session_.GetPrinter().GetSettings().PaperColumns();
    return Reply{.body = impresora::PaperText(lines, columns), .type = kPlainText};
  });
}

void Api::PaperLines(const Call& call) {
  Answer(call, [this] {
    std::string lines;
    for (const PaperLine& line : history_.Roll()) {
      lines += (lines.empty() ? "" : ",\n") + PaperLineJson(line);
    }
    const std::size_t columns = session_.GetPrinter().GetSettings().PaperColumns();
    return Reply{.body = "{\"evento\": " + std::to_string(feed_.Now().id) + ", \"columnas\": " +
                         std::to_string(columns) + ", \"lineas\": [" + lines + "]}\n"};
  });
}

void Api::TearPaper(const Call& call) {
  Answer(call, [this] {
    history_.TearOff();
    return Reply{.body = "{}\n"};
  });
}

void Api::Documents(const Call& call) {
  Answer(call, [this] {
    std::string body;
    for (const KeptDocument& kept : history_.Documents()) {
      body += (body.empty() ? "" : ",\n") + ReceiptJson(kept.receipt);
    }
    return Reply{.body = "[" + body + "]\n"};
  });
}

Api::Reply Api::DocumentReply(unsigned ordinal, bool picture) {
  const KeptDocument* const kept = history_.FindDocument(ordinal);
  if (kept == nullptr) {
    return {.status = 404, .body = ErrorBody("ese documento no está entre los últimos 50")};
  }
  const std::size_t columns = session_.GetPrinter().GetSettings().PaperColumns();
  if (!picture) return {.body = impresora::PaperText(kept->paper, columns), .type = kPlainText};
  const std::string name = DocumentName(kept->receipt);
  return {.body = ToSvg(Draw(kept->paper, columns, name)), .type = "image/svg+xml; charset=utf-8"};
}

void Api::DocumentText(const Call& call) {
  Answer(call, [this, n = call.number] { return DocumentReply(n, false); });
}

void Api::DocumentPicture(const Call& call) {
  Answer(call, [this, n = call.number] { return DocumentReply(n, true); });
}

void Api::Exchanges(const Call& call) {
  const std::string_view text = Parameter(call.request.query, "desde");
  const auto from = text.empty() ? std::optional(0U) : ReadCount(text);
  if (!from) {
    call.response = {.status = 400,
                     .type = kJson,
                     .body = ErrorBody("desde tiene que ser un número"),
                     .allow = {},
                     .stream = {}};
    return;
  }
  Answer(call, [this, from] {
    std::string body;
    for (const History::KeptExchange& exchange : history_.Exchanges()) {
      if (exchange.number >= *from) body += (body.empty() ? "" : ",\n") + exchange.json;
    }
    return Reply{.body = "[" + body + "]\n"};
  });
}

void Api::GetControls(const Call& call) {
  Answer(call,
         [this] { return Reply{.body = OneLine(ControlsJson(session_.GetPrinter())) + "\n"}; });
}

void Api::GetFaults(const Call& call) {
  Answer(call, [this] { return Reply{.body = OneLine(FaultRulesJson(session_.Faults())) + "\n"}; });
}

}  // namespace impresora
