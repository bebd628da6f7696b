#include "service/printer.hpp"

#include <array>
#include <utility>

#include "service/job_events.hpp"
#include "service/pauses.hpp"

namespace puerta {
namespace {

using std::chrono::milliseconds;

constexpr int kMostUnbegun = 3;  // deaths that one job may cost before it begins
constexpr std::size_t kMostQuestions = 20;
constexpr auto kWatch = std::chrono::minutes(1);
constexpr auto kLook = std::chrono::seconds(10);
// The longest call of the library, twice: it waits a quarter of an hour for a printer that says it is busy.
constexpr auto kLongestSilence = std::chrono::minutes(40);

}  // namespace

Printer::Printer(std::string id, Json facts, const PrinterWorld& world)
    : id_(std::move(id)), facts_(std::move(facts)), world_(world) {}

void Printer::Start() {
  phase_ = Phase::kStarting;
  heard_ = world_.clock.Now();
  world_.workers.Start(id_);
  TellConnection();
  Watch();
}

// What the store cannot take is not done: the worker goes, and is asked what became of it when there is room again.
void Printer::Guarded(const std::function<void()>& work) {
  try {
    work();
  } catch (const StoreFailure& failure) {
    world_.log.Write("error", "datos", {{"impresora", id_}, {"texto", failure.what()}});
    Restart();
  }
}

void Printer::Restart() {
  if (phase_ == Phase::kAway) return;
  world_.workers.Kill(id_);
}

void Printer::OnGone(const std::string& why) {
  ++failures_;
  ++deaths_;
  unbegun_ = phase_ == Phase::kHanded ? unbegun_ + 1 : 0;
  why_ = why;
  phase_ = Phase::kAway;
  line_ = 0;
  ForgetQuestions();
  world_.log.Write("aviso", "trabajador_terminado", {{"impresora", id_}, {"texto", why}});
  if (failures_ == kStopped) Alarm(kInternal, "El proceso de la impresora no arranca: " + why);
  TellConnection();
  world_.timers.After(PauseAfter(failures_), [this] { Start(); });
}

void Printer::OnLine(const Json& line) {
  struct Row {
    const char* name;
    void (Printer::*read)(const Json&);
  };
  static constexpr std::array<Row, 6> kLines{{
      {"listo", &Printer::Ready},
      {"antes", &Printer::Before},
      {"paso", &Printer::Step},
      {"fin", &Printer::Ended},
      {"recuperado", &Printer::Recovered},
      {"novedad", &Printer::News},
  }};
  heard_ = world_.clock.Now();
  for (const auto& row : kLines) {
    if (!line.contains(row.name)) continue;
    Guarded([&] { (this->*row.read)(line[row.name]); });
    Next();
  }
  TellConnection();
}

void Printer::Next() {
  Guarded([this] {
    if (phase_ != Phase::kIdle || AskNext() || resting_) return;
    const auto interrupted = world_.store.Interrupted(id_);
    if (!interrupted.empty()) return Recover(interrupted.front());
    doubts_ = 0;
    if (const auto job = world_.store.Next(id_)) Hand(*job);
  });
}

void Printer::Recover(const Job& job) {
  phase_ = Phase::kRecovering;
  job_ = job.number;
  const auto before = ParseJson(job.before).value_or(Json());
  world_.workers.Send(id_, {{"recupere",
                             {{"trabajo", job.number},
                              {"operacion", job.operation},
                              {"cuerpo", ParseJson(job.body).value_or(Json())},
                              {"antes", before}}}});
}

void Printer::Hand(const Job& job) {
  job_ = job.number;
  if (unbegun_ >= kMostUnbegun) {
    unbegun_ = 0;
    world_.store.Begin(job.number, "null", world_.clock.Now());
    Finish(job, NotDone(kInternal, "El proceso de la impresora murió al empezarlo. No se hizo."));
    world_.timers.After(milliseconds(0), [this] { Next(); });
    return;
  }
  phase_ = Phase::kHanded;
  line_ = 0;
  world_.workers.Send(id_, {{"trabajo", job.number},
                            {"operacion", job.operation},
                            {"cuerpo", ParseJson(job.body).value_or(Json())}});
}

void Printer::Ready(const Json& told) {
  if (phase_ != Phase::kStarting) return;
  facts_ = told;
  phase_ = Phase::kIdle;
  resting_ = false;
  world_.log.Write("info", "impresora_lista", {{"impresora", id_}, {"hechos", told}});
}

void Printer::Before(const Json& told) {
  const auto number = IntegerOf(told, "trabajo");
  if (phase_ != Phase::kHanded || number != job_) return Restart();
  const auto job = world_.store.Find(number);
  if (!job || !world_.store.Begin(number, LineOf(told), world_.clock.Now(),
                                  EventsOf(With(*job, {.state = State::kPrinting}, Moment{})))) {
    return Restart();
  }
  phase_ = Phase::kPrinting;
  unbegun_ = 0;
  world_.workers.Send(id_, {{"siga", number}});
  world_.listener.OnNews();
}

void Printer::Step(const Json& told) {
  if (Has(IntegerOf(told, "trabajo"))) line_ = IntegerOf(told, "renglon", line_);
}

void Printer::Ended(const Json& told) {
  const auto number = IntegerOf(told, "trabajo");
  if (phase_ == Phase::kAsking && number == last_question_) {
    phase_ = Phase::kIdle;
    failures_ = 0;
    const auto question = std::exchange(asked_, std::nullopt);
    if (question) question->answered(told);
    return;
  }
  if (!Has(number)) return Restart();
  const auto job = world_.store.Find(number);
  // One that could not even be looked at has not begun, and is over all the same.
  if (phase_ == Phase::kHanded) world_.store.Begin(number, "null", world_.clock.Now());
  if (job) Finish(*job, told);
  phase_ = Phase::kIdle;
  failures_ = unbegun_ = 0;
}

void Printer::Recovered(const Json& told) {
  if (phase_ != Phase::kRecovering || IntegerOf(told, "trabajo") != job_) return Restart();
  const auto job = world_.store.Find(job_);
  phase_ = Phase::kIdle;
  failures_ = 0;
  const auto outcome = OutcomeOf(told);
  if (job && (outcome.state != job->state || outcome.settled)) Finish(*job, told);
  if (outcome.state != State::kUnknown || outcome.settled) return;
  resting_ = true;
  world_.timers.After(PauseAfter(++doubts_), [this] {
    resting_ = false;
    Next();
  });
}

void Printer::Finish(const Job& job, const Json& told) {
  const auto outcome = OutcomeOf(told);
  const auto now = world_.clock.Now();
  auto over = With(job, outcome, now);
  if (over.began == Moment{}) over.began = now;
  world_.store.Finish(job.number, outcome, now, EventsOf(over));
  world_.log.Write(outcome.state == State::kDone ? "info" : "aviso", "trabajo",
                   {{"impresora", id_},
                    {"trabajo", job.number},
                    {"operacion", job.operation},
                    {"estado", WordsOf(outcome.state)},
                    {"causa", IntegerOf(told, "causa")}});
  world_.listener.OnOutcome(job.number);
  world_.listener.OnNews();
}

void Printer::Ask(const std::string& question, Answered answered) {
  const bool away = phase_ == Phase::kAway || phase_ == Phase::kStarting;
  if (away || questions_.size() >= kMostQuestions) return answered(nullptr);
  questions_.push_back({question, std::move(answered)});
  Next();
}

bool Printer::AskNext() {
  if (questions_.empty()) return false;
  asked_ = std::move(questions_.front());
  questions_.pop_front();
  phase_ = Phase::kAsking;
  // Jobs count upwards from one, questions downwards.
  world_.workers.Send(
      id_,
      {{"trabajo", --last_question_}, {"operacion", asked_->words}, {"cuerpo", Json::object()}});
  return true;
}

void Printer::ForgetQuestions() {
  auto waiting = std::exchange(questions_, {});
  if (asked_) waiting.push_front(*std::exchange(asked_, std::nullopt));
  for (const auto& question : waiting) question.answered(nullptr);
}

// Paper that ends and cables that are pulled between two sales are news too; who asks is told by "novedad".
void Printer::Look() {
  world_.timers.After(kLook, [this] {
    const bool free = phase_ == Phase::kIdle && questions_.empty() && !resting_;
    if (free) Ask("estado", [](const Json&) {});
    Look();
  });
}

// A worker that neither says anything nor ends.
void Printer::Watch() {
  if (!std::exchange(looking_, true)) Look();
  if (std::exchange(watched_, true)) return;
  world_.timers.After(kWatch, [this] {
    watched_ = false;
    const bool busy = phase_ != Phase::kAway && phase_ != Phase::kIdle;
    if (busy && world_.clock.Now() - heard_ > kLongestSilence) Restart();
    Watch();
  });
}

}  // namespace puerta
