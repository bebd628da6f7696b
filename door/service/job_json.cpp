#include "service/job_json.hpp"

#include <array>
#include <string_view>

#include "base/moment.hpp"

namespace puerta {
namespace {

constexpr int kNotSent = 3;  // KESTRA_DESENLACE_NO_ENVIADO

// Who shows what a document or a report came to, and what of it.
struct Shown {
  std::string_view operation, member;
  std::array<std::string_view, 5> names;
};

constexpr std::array<Shown, 2> kShown{{
    {"comprobante", "comprobante", {"tipo", "letra", "numero", "total", "vuelto"}},
    {"informe", "informe", {"tipo", "numero"}},
}};

void Show(const Job& job, const Json& answer, Json& told) {
  const auto body = ParseJson(job.body).value_or(Json::object());
  for (const auto& shown : kShown) {
    if (shown.operation != job.operation) continue;
    Json part = Json::object();
    for (const auto name : shown.names) {
      const auto known = TextOf(answer.value("datos", Json::object()), name, TextOf(body, name));
      if (!name.empty() && !known.empty()) part[std::string(name)] = known;
    }
    // What the till had asked for beside it is not what was printed.
    if (job.state != State::kDone) part.erase("total");
    told[std::string(shown.member)] = part;
  }
}

void ShowMoment(Json& told, const char* name, Moment moment) {
  if (moment != Moment{}) told[name] = MomentText(moment);
}

State StateOf(std::string_view words) {
  if (words == WordsOf(State::kDone)) return State::kDone;
  return words == WordsOf(State::kNotDone) ? State::kNotDone : State::kUnknown;
}

}  // namespace

Json JobJson(const Job& job, const Progress& progress) {
  const auto answer = ParseJson(job.answer).value_or(Json::object());
  Json told{{"trabajo", job.number},
            {"impresora", job.printer},
            {"operacion", job.operation},
            {"estado", WordsOf(job.state)},
            {"desenlace", IntegerOf(answer, "desenlace")},
            {"causa", IntegerOf(answer, "causa")},
            {"texto", TextOf(answer, "texto")}};
  if (job.state == State::kUnknown) told["definitivo"] = IsOver(job);
  if (progress.line > 0) told["renglon"] = progress.line;
  if (progress.position > 0) told["posicion"] = progress.position;
  Show(job, answer, told);
  ShowMoment(told, "creado", job.accepted);
  ShowMoment(told, "comenzado", job.began);
  ShowMoment(told, "terminado", job.ended);
  return told;
}

std::string AnswerOf(const Json& told) {
  Json kept = Json::object();
  for (const auto* name : {"desenlace", "causa", "texto", "datos"}) {
    if (told.contains(name)) kept[name] = told[name];
  }
  return LineOf(kept);
}

Outcome OutcomeOf(const Json& told) {
  const auto definite = told.find("definitivo");
  return {.state = StateOf(TextOf(told, "estado")),
          .answer = AnswerOf(told),
          .settled = definite != told.end() && definite->is_boolean() && definite->get<bool>()};
}

Json NotDone(int cause, std::string_view words) {
  return {{"estado", WordsOf(State::kNotDone)},
          {"desenlace", kNotSent},
          {"causa", cause},
          {"texto", words}};
}

}  // namespace puerta
