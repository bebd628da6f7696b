#include "worker/session.hpp"

#include <kestra/causas.h>
#include <kestra/kestra.h>

#include <charconv>
#include <utility>

#include "worker/journal.hpp"
#include "worker/outcome.hpp"

namespace puerta {
namespace {

constexpr int kMostTries = 8;  // of an item whose sheet is turned
constexpr std::size_t kMoneyDigits = 12;
constexpr int kFirstData = 3, kSecondData = 4;  // fields of an answer
constexpr auto kOtherCounters = "TM300AF";      // a model whose counters stand in another order

// A form is closed and the next one opened, one of the two for each time that the item is sent; with a printer that
// does not answer there is no use in that.
bool IsTurningSheets(const Report& report) {
  constexpr int kFiscal = 5, kBooks = 6;
  const int hundred = report.cause / 100;
  return report.outcome == KESTRA_DESENLACE_EN_PARTE &&
         (report.cause == 0 || hundred == kFiscal || hundred == kBooks);
}

std::int64_t NumberOf(std::string_view digits) {
  std::int64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace

Session::Session(Link& link, const std::string& ini)
    : link_(link),
      told_facts_(FactsOf(ini)),
      library_([this](const std::string& text, bool question) {
        link_.Tell("novedad", {{"aviso", {{"texto", text}, {"pregunta", question}}}});
      }) {
  facts_ = ReadFacts(told_facts_);
  journal_ = TextOf(told_facts_, "diario");
}

void Session::Run() {
  const auto report = library_.Start();
  Json listo = told_facts_;
  listo["iniciada"] = IsDone(report);
  listo["causa"] = report.cause;
  listo["texto"] = report.text;
  link_.Tell("listo", listo);
  while (!over_) {
    const auto line = link_.Hear();
    if (!line) return;
    Answer(*line);
  }
}

void Session::Answer(const Json& line) {
  if (line.contains("termine")) {
    over_ = true;
  } else if (line.contains("recupere")) {
    Recover(line["recupere"]);
  } else if (line.contains("estado")) {
    library_.Ask();
    link_.Tell("novedad", StateJson(library_.Listen()));
  } else if (line.contains("trabajo")) {
    Carry(line);
  }
}

void Session::Carry(const Json& line) {
  const Job job{line.value("trabajo", std::int64_t{0}), TextOf(line, "operacion"),
                line.value("cuerpo", Json::object())};
  Plan plan = PlanOf(job.operation, job.body, facts_);
  if (!plan.errors.empty()) {
    Json outcome = NotDone({.text = "El pedido no es válido."});
    outcome["errores"] = ToJson(plan.errors);
    return Finish(job, "fin", outcome);
  }
  if (!ChangesThePrinter(job.operation)) return AnswerQuestion(job);
  Print(job, std::move(plan));
}

// ---- Questions ----

void Session::AnswerQuestion(const Job& job) {
  auto report = library_.Start();
  Json data;
  if (IsDone(report)) {
    const bool clock = job.operation == "leer_reloj";
    report = clock ? library_.Make({.name = "EP_ObtenerFechaHora"}) : library_.Ask();
    TellNews();
  }
  if (job.operation == "estado") data = StateJson(library_.Listen());
  if (job.operation == "numeracion" && IsDone(report)) {
    const bool other = TextOf(told_facts_, "modelo") == kOtherCounters;
    data["contadores"] = other ? Json::array() : CountersJson(library_.ReadCounters());
  }
  if (job.operation == "leer_reloj" && IsDone(report)) {
    const auto day = library_.Answer(kFirstData);
    const auto hour = library_.Answer(kSecondData);
    if (day.size() == 6 && hour.size() == 6)
      data["fecha_hora"] = "20" + day.substr(0, 2) + "-" + day.substr(2, 2) + "-" + day.substr(4) +
                           "T" + hour.substr(0, 2) + ":" + hour.substr(2, 2) + ":" + hour.substr(4);
  }
  Json outcome = IsDone(report) ? OutcomeJson(Fate::kDone, report) : NotDone(report);
  outcome["datos"] = data;
  Finish(job, "fin", outcome);
}

// ---- Jobs ----

// Nothing is asked of a printer whose counters have not moved but by this program.
bool Session::LearnCounters(Report& report) {
  if (knows_) return true;
  report = library_.Ask();
  TellNews();
  if (!IsDone(report)) return false;
  const bool other = TextOf(told_facts_, "modelo") == kOtherCounters;
  counters_ = other ? Counters{} : library_.ReadCounters();
  return knows_ = true;
}

void Session::Print(const Job& job, Plan plan) {
  auto report = library_.Start();
  if (IsDone(report) && library_.IsPending())
    report = {.outcome = KESTRA_DESENLACE_NO_ENVIADO,
              .cause = KESTRA_CAUSA_SIN_RESOLVER,
              .text = "Falta saber qué fue de una operación anterior."};
  if (!IsDone(report) || !LearnCounters(report)) return Finish(job, "fin", NotDone(report));
  const bool opens = job.operation == "comprobante" || job.operation == "no_fiscal";
  const bool open = library_.IsOpen();
  if (open && opens) {
    knows_ = false;
    return Finish(job, "fin",
                  NotDone({.cause = KESTRA_CAUSA_ESTADO_INVALIDO,
                           .text = "Hay un comprobante abierto que no es de la puerta: hay que "
                                   "cancelarlo."}));
  }
  before_ = {
      .known = true, .intent = NewestNumberOf(journal_), .open = open, .counters = counters_};
  if (!HasLeave(job)) return;
  Report failed;
  const bool done = PrintCalls(job, plan, failed);
  if (over_) return;
  done ? EndDone(job, plan) : End(job, plan, failed);
}

// The door writes down what was before the first byte.
bool Session::HasLeave(const Job& job) {
  Json before = ToJson(before_);
  before["trabajo"] = job.number;
  link_.Tell("antes", before);
  for (auto line = link_.Hear(); line && !line->contains("termine"); line = link_.Hear())
    if (line->value("siga", std::int64_t{0}) == job.number) return true;
  over_ = true;
  return false;
}

// A till must not get a paper that it no longer waits for: without a door nothing more is sent.
bool Session::PrintCalls(const Job& job, Plan& plan, Report& failed) {
  for (const auto& call : plan.calls) {
    over_ = over_ || link_.IsGone();
    if (over_) return false;
    Json step{{"trabajo", job.number}, {"llamada", call.name}};
    if (call.line > 0) step["renglon"] = call.line;
    link_.Tell("paso", step);
    const auto report = Persist(call);
    TellNews();
    if (!IsDone(report)) return failed = report, false;
    if (call.name == "EP_ImprimirPago") NotePaid(plan);
    if (!report.number.empty()) plan.told["numero"] = report.number;
  }
  return true;
}

Report Session::Persist(const Call& call) {
  Report report = library_.Make(call);
  for (int i = 1; i < kMostTries && IsTurningSheets(report); ++i) report = library_.Make(call);
  return report;
}

// The printer's own sum, once it tells what is left to pay, or to give back.
void Session::NotePaid(Plan& plan) {
  const auto left = library_.Answer(kFirstData);
  const auto change = library_.Answer(kSecondData);
  if (left.size() != kMoneyDigits || change.size() != kMoneyDigits) return;
  std::int64_t paid = 0;
  for (const auto& call : plan.calls)
    if (call.name == "EP_ImprimirPago") paid += UnitsOf(call.amounts[0], 2).value_or(0);
  if (NumberOf(left) == 0) plan.told["total"] = FixedText(paid - NumberOf(change), 2);
  if (NumberOf(change) > 0) plan.told["vuelto"] = FixedText(NumberOf(change), 2);
}

// Told by the answer to what has ended the job, or, where the books had to be asked, by what they said before.
void Session::NoteNumber(Plan& plan) {
  const auto own = library_.IsFirstAttempt() ? library_.Answer(kFirstData) : "";
  const auto before = plan.counter ? counters_[*plan.counter] : std::nullopt;
  if (!own.empty()) {
    plan.told["numero"] = EightDigits(NumberOf(own));
  } else if (before) {
    plan.told["numero"] = EightDigits(*before + 1);
  }
}

void Session::EndDone(const Job& job, Plan& plan) {
  const bool closing = job.operation == "comprobante" || plan.counter == kClosings;
  if (closing && !plan.told.contains("numero")) NoteNumber(plan);
  const auto number = TextOf(plan.told, "numero");
  if (plan.counter == kNonFiscal && counters_[kNonFiscal]) {
    ++*counters_[kNonFiscal];
  } else if (plan.counter) {
    knows_ = plan.counter != kClosings && !number.empty();
    counters_[*plan.counter] = NumberOf(number);
  }
  if (job.operation == "cancelar") knows_ = false;
  Json outcome = OutcomeJson(Fate::kDone, {.outcome = KESTRA_DESENLACE_HECHO});
  outcome["datos"] = plan.told;
  Finish(job, "fin", outcome);
}

void Session::End(const Job& job, const Plan& plan, const Report& failed) {
  knows_ = false;
  // The library has just asked for as long as its patience lasts: the till is not kept waiting for another time.
  const bool silent = failed.outcome == KESTRA_DESENLACE_DESCONOCIDO && library_.IsPending();
  Cleared cleared;
  if (silent) {
    cleared.settled = false;
    cleared.why = failed;
  } else {
    cleared = Clear(library_, journal_, plan, before_);
  }
  Finish(job, "fin", OutcomeOf(plan, cleared, failed));
}

void Session::Recover(const Json& told) {
  const Job job{told.value("trabajo", std::int64_t{0}), TextOf(told, "operacion"),
                told.value("cuerpo", Json::object())};
  knows_ = false;
  const Plan plan = PlanOf(job.operation, job.body, facts_);
  const auto before = ReadBefore(told.value("antes", Json()));
  Finish(job, "recuperado", OutcomeOf(plan, Clear(library_, journal_, plan, before), {}));
  TellNews();
}

// ---- What is told ----

void Session::Finish(const Job& job, const char* name, Json outcome) {
  outcome["trabajo"] = job.number;
  link_.Tell(name, std::move(outcome));
}

// A call that asked nothing of the printer says nothing of it.
void Session::TellNews() {
  constexpr int kPort = 2, kLine = 3;
  const auto heard = library_.Listen();
  const int hundred = heard.cause / 100;
  if (!heard.answers && hundred != kPort && hundred != kLine) return;
  const auto state = StateJson(heard);
  if (NewsOf(state) == news_) return;
  news_ = NewsOf(state);
  link_.Tell("novedad", state);
}

}  // namespace puerta
