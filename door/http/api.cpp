#include "http/api.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "base/moment.hpp"
#include "http/metrics.hpp"
#include "http/news.hpp"

namespace puerta {
namespace {

constexpr int kMostJobs = 200;
constexpr int kUsualJobs = 50;
constexpr int kMostLookedAt = 2000;

// A number of a query: what is missing is `otherwise`, what is none is less than nothing.
std::int64_t Number(const std::string& text, std::int64_t otherwise) {
  if (text.empty()) return otherwise;
  std::int64_t value = -1;
  const auto* const last = text.data() + text.size();
  return std::from_chars(text.data(), last, value).ptr == last ? value : -1;
}

Problem BadParameter(const std::string& name) {
  return {.status = 400,
          .kind = "parametro",
          .title = "Parámetro no válido",
          .detail = "El parámetro " + name + " no es un número que sirva."};
}

Problem NoPrinter(const std::string& id) {
  return NotThere("No hay una impresora que se llame " + id + ".");
}

const Problem kNobodyAnswers{
    .status = 503,
    .kind = "sin-impresora",
    .title = "La impresora no contesta",
    .detail = "La impresora no contesta. Revise que esté encendida y el cable bien puesto."};

}  // namespace

Problem NotThere(const std::string& what) {
  return {.status = 404, .kind = "no-existe", .title = "No existe", .detail = what};
}

void Api::Answer(const Route& route, const Visit& visit, const Respond& respond) {
  operation_ = route.operation;
  (this->*route.answer)(visit, respond);
}

void Api::Printers(const Visit&, const Respond& respond) {
  Json all = Json::array();
  for (const auto& [id, printer] : service_.Printers()) all.push_back(printer->Show());
  respond(JsonAnswer(200, {{"impresoras", all}}));
}

void Api::OnePrinter(const Visit& visit, const Respond& respond) {
  const auto* const printer = service_.FindPrinter(visit.words[0]);
  respond(printer == nullptr ? ProblemAnswer(NoPrinter(visit.words[0]))
                             : JsonAnswer(200, printer->Show()));
}

// While it prints, or when nobody can ask it, what it last said.
void Api::PrinterState(const Visit& visit, const Respond& respond) {
  auto* const printer = service_.FindPrinter(visit.words[0]);
  if (printer == nullptr) return respond(ProblemAnswer(NoPrinter(visit.words[0])));
  const auto last = [this, printer](const Json& told) {
    Json state = printer->Told().is_object() ? printer->Told()["estado"] : Json::object();
    if (told.is_object() && told.contains("datos")) state.update(told["datos"]);
    const auto now = MomentText(service_.Wall().Now());
    const Json unknown{{"impresora", printer->Id()},           {"contesta", false},
                       {"condiciones", Json::array()},         {"causa", 0},
                       {"texto", "La impresora no contesta."}, {"momento", now}};
    for (const auto& [name, value] : unknown.items()) {
      if (!state.contains(name)) state[name] = value;
    }
    if (told.is_object()) state["momento"] = now;
    return JsonAnswer(200, state);
  };
  if (printer->IsBusy()) return respond(last(nullptr));
  printer->Ask("estado", [last, respond](const Json& told) { respond(last(told)); });
}

void Api::Question(const Visit& visit, const std::string& words, const char* member,
                   const Respond& respond) {
  auto* const printer = service_.FindPrinter(visit.words[0]);
  if (printer == nullptr) return respond(ProblemAnswer(NoPrinter(visit.words[0])));
  const auto id = printer->Id();
  printer->Ask(words, [respond, member, id](const Json& told) {
    if (told.is_object() && told.contains("datos") && told["datos"].contains(member)) {
      return respond(JsonAnswer(200, {{"impresora", id}, {member, told["datos"][member]}}));
    }
    auto problem = kNobodyAnswers;
    problem.cause = static_cast<int>(IntegerOf(told, "causa"));
    problem.detail = TextOf(told, "texto", problem.detail);
    respond(ProblemAnswer(problem));
  });
}

void Api::Numbers(const Visit& visit, const Respond& respond) {
  Question(visit, "numeracion", "contadores", respond);
}

void Api::ReadClock(const Visit& visit, const Respond& respond) {
  Question(visit, "leer_reloj", "fecha_hora", respond);
}

void Api::Jobs(const Visit& visit, const Respond& respond) {
  const auto& id = visit.words[0];
  if (service_.FindPrinter(id) == nullptr) return respond(ProblemAnswer(NoPrinter(id)));
  auto before = Number(visit.request.Query("antes"), 0);
  const auto most = Number(visit.request.Query("limite"), kUsualJobs);
  if (before < 0) return respond(ProblemAnswer(BadParameter("antes")));
  if (most < 1 || most > kMostJobs) return respond(ProblemAnswer(BadParameter("limite")));
  const auto wanted = visit.request.Query("estado");
  Json shown = Json::array();
  bool more = true;
  for (int looked = 0; more && looked < kMostLookedAt; looked += kMostJobs) {
    const auto jobs = service_.JobsOf(id, before, kMostJobs);
    more = jobs.size() == kMostJobs;
    for (const auto& job : jobs) {
      if (static_cast<std::int64_t>(shown.size()) == most) {
        more = true;
        looked = kMostLookedAt;
        break;
      }
      before = job.number;
      if (wanted.empty() || wanted == WordsOf(job.state)) shown.push_back(service_.Show(job));
    }
  }
  Json body{{"trabajos", shown}};
  if (more) body["antes"] = before;
  respond(JsonAnswer(200, body));
}

void Api::OneJob(const Visit& visit, const Respond& respond) {
  const auto job = service_.Find(std::max<std::int64_t>(Number(visit.words[0], 0), 0));
  respond(job ? JsonAnswer(200, service_.Show(*job))
              : ProblemAnswer(NotThere("No hay un trabajo con ese número.")));
}

// A till's sale is its own, or theirs who close the day.
void Api::CancelJob(const Visit& visit, const Respond& respond) {
  const auto number = std::max<std::int64_t>(Number(visit.words[0], 0), 0);
  const auto job = service_.Find(number);
  if (job && job->till != visit.till.name && (visit.till.rights & kClose) == 0) {
    return respond(ProblemAnswer({.status = 403,
                                  .kind = "sin-derecho",
                                  .title = "Sin derecho",
                                  .detail = "Es de otra caja: lo cancela ella, o quien cierra."}));
  }
  const auto taken = service_.Cancel(number);
  respond(taken.refused ? ProblemAnswer(*taken.refused)
                        : JsonAnswer(200, service_.Show(*taken.job)));
}

void Api::Events(const Visit& visit, const Respond& respond) {
  const auto id = visit.request.Query("impresora");
  if (!id.empty() && service_.FindPrinter(id) == nullptr) {
    return respond(ProblemAnswer({.status = 400,
                                  .kind = "parametro",
                                  .title = "Parámetro no válido",
                                  .detail = "No hay una impresora que se llame así."}));
  }
  auto said = visit.request.Field("last-event-id");
  if (said.empty()) said = visit.request.Query("desde");
  const auto after = Number(said, service_.Memory().LastEvent());
  if (after < 0) return respond(ProblemAnswer(BadParameter("desde")));
  respond({.type = "text/event-stream",
           .stream = std::make_shared<News>(service_.Memory(), service_.Wall(), after,
                                            !said.empty(), id)});
}

void Api::Health(const Visit&, const Respond& respond) {
  bool well = true;
  try {
    service_.Memory().LastEvent();
  } catch (const StoreFailure&) {
    well = false;
  }
  respond(JsonAnswer(well ? 200 : 503,
                     {{"estado", well ? "bien" : "mal"}, {"version", settings_.version}}));
}

void Api::Metrics(const Visit&, const Respond& respond) {
  auto text = MetricsText(service_);
  if (settings_.more_metrics) text += settings_.more_metrics();
  respond({.type = "text/plain; version=0.0.4; charset=utf-8", .body = text});
}

void Api::ShowPage(const Visit& visit, const Respond& respond) {
  if (visit.request.path == "/caja") {
    return respond({.status = 308, .type = "text/plain", .fields = {{"Location", "/caja/"}}});
  }
  auto page = settings_.page ? settings_.page(visit.request.path) : std::nullopt;
  if (!page) return respond(ProblemAnswer(NotThere("No hay nada en esa dirección.")));
  const bool reference = visit.request.path == "/documentacion";
  const std::string style = reference ? "style-src 'self' 'unsafe-inline'" : "style-src 'self'";
  respond({.type = page->first,
           .body = std::move(page->second),
           .fields = {
               {"Content-Security-Policy",
                "default-src 'none'; script-src 'self'; img-src 'self' data:; connect-src 'self'; "
                "manifest-src 'self'; worker-src 'self'; base-uri 'none'; form-action 'none'; "
                "frame-ancestors 'none'; " +
                    style}}});
}

}  // namespace puerta
