#include "service/service.hpp"

#include <chrono>
#include <utility>

#include "base/sha256.hpp"
#include "sale/check.hpp"

namespace puerta {
namespace {

constexpr auto kKept = std::chrono::days(30);  // bodies of jobs, and events
constexpr auto kPruneEvery = std::chrono::minutes(1);
constexpr int kMostPruned = 200;

const Problem kOtherBody{.status = 422,
                         .kind = "clave-usada",
                         .title = "La clave ya se usó",
                         .detail =
                             "Esa Idempotency-Key ya se usó con otro pedido. No se imprimió nada: "
                             "mande este con una clave nueva."};
const Problem kFull{
    .status = 429,
    .kind = "demasiados",
    .title = "Demasiados pedidos",
    .detail = "La cola de la impresora está llena. Espere y repita con la misma clave."};
const Problem kTooLate{
    .status = 409,
    .kind = "ya-empezo",
    .title = "Ya empezó",
    .detail = "El trabajo ya empezó o ya terminó: no se puede sacar de la cola."};

Problem NoSuch(const std::string& what) {
  return {.status = 404, .kind = "no-existe", .title = "No existe", .detail = what};
}

Problem Invalid(std::vector<FieldError> errors) {
  return {.status = 422,
          .kind = "datos-invalidos",
          .title = "Datos inválidos",
          .detail = "No se imprimió nada. Corrija los datos: la clave sigue libre.",
          .errors = std::move(errors)};
}

std::string HashOf(const Wish& wish) {
  return Sha256(wish.printer + "\n" + wish.operation + "\n" + LineOf(wish.body));
}

}  // namespace

Service::Service(const std::vector<PrinterSettings>& printers, std::size_t most_waiting,
                 Store& store, const Clock& clock, Timers& timers, Workers& workers, Log& log)
    : world_{.store = store,
             .clock = clock,
             .timers = timers,
             .workers = workers,
             .listener = *this,
             .log = log},
      most_waiting_(most_waiting) {
  for (const auto& settings : printers) {
    printers_[settings.id] = std::make_unique<Printer>(settings.id, settings.facts, world_);
  }
}

void Service::Start() {
  for (const auto& [id, printer] : printers_) printer->Start();
  Prune();
}

void Service::Prune() {
  try {
    world_.store.Prune(world_.clock.Now() - kKept, kMostPruned);
  } catch (const StoreFailure& failure) {
    world_.log.Write("error", "datos", {{"texto", failure.what()}});
  }
  world_.timers.After(kPruneEvery, [this] { Prune(); });
}

Printer* Service::FindPrinter(const std::string& id) {
  const auto found = printers_.find(id);
  return found == printers_.end() ? nullptr : found->second.get();
}

// Before anything else is looked at: what was answered once is answered so for ever.
std::optional<Taken> Service::Repeated(const Wish& wish, const std::string& hash) {
  const auto known = world_.store.FindKey(wish.till, wish.key);
  if (!known) return std::nullopt;
  if (known->hash != hash) {
    ++counters_.other_body;
    return Taken{.refused = kOtherBody};
  }
  ++counters_.repeated;
  return Taken{.job = known, .repeated = true};
}

Taken Service::Take(const Wish& wish) {
  auto* const printer = FindPrinter(wish.printer);
  if (printer == nullptr)
    return {.refused = NoSuch("No hay una impresora que se llame " + wish.printer + ".")};
  const auto hash = HashOf(wish);
  if (auto repeated = Repeated(wish, hash)) return *repeated;
  if (auto errors = Check(wish.operation, wish.body, printer->Facts()); !errors.empty()) {
    ++counters_.invalid;
    return {.refused = Invalid(std::move(errors))};
  }
  if (world_.store.Waiting(wish.printer) >= static_cast<std::int64_t>(most_waiting_)) {
    ++counters_.full;
    return {.refused = kFull};
  }
  const auto accepted = world_.store.Accept({.till = wish.till,
                                             .key = wish.key,
                                             .printer = wish.printer,
                                             .operation = wish.operation,
                                             .hash = hash,
                                             .body = LineOf(wish.body)},
                                            world_.clock.Now());
  ++counters_.taken;
  world_.timers.After(std::chrono::milliseconds(0), [printer] { printer->Next(); });
  return {.job = accepted.job};
}

Taken Service::Cancel(std::int64_t number) {
  const auto job = world_.store.Find(number);
  if (!job) return {.refused = NoSuch("No hay un trabajo con ese número.")};
  if (job->state == State::kCancelled) return {.job = job, .repeated = true};
  auto* const printer = FindPrinter(job->printer);
  const bool handed = printer != nullptr && printer->Has(number);
  auto cancelled = *job;
  cancelled.state = State::kCancelled;
  cancelled.ended = world_.clock.Now();
  cancelled.answer =
      AnswerOf({{"desenlace", 3}, {"causa", 0}, {"texto", "Se lo sacó de la cola. No se hizo."}});
  const std::vector<Event> events{
      {.printer = job->printer, .kind = "trabajo", .data = LineOf(JobJson(cancelled))}};
  if (handed || !world_.store.Cancel(number, cancelled.answer, cancelled.ended, events)) {
    return {.refused = kTooLate};
  }
  ++counters_.cancelled;
  OnOutcome(number);
  OnNews();
  return {.job = cancelled};
}

Json Service::Show(const Job& job) {
  auto* const printer = FindPrinter(job.printer);
  Progress progress;
  const bool printing = job.state == State::kPrinting;
  if (printer != nullptr && printing) progress.line = printer->Line(job.number);
  progress.position = world_.store.Position(job);
  return JobJson(job, progress);
}

std::vector<Job> Service::JobsOf(const std::string& printer, std::int64_t before, int most) {
  return world_.store.JobsOf(printer, before, most);
}

void Service::WhenTold(std::int64_t number, Then then) {
  waiting_.emplace(number, std::move(then));
}

void Service::OnLine(const std::string& printer, const Json& line) {
  if (auto* const found = FindPrinter(printer)) found->OnLine(line);
}

void Service::OnGone(const std::string& printer, const std::string& why) {
  if (auto* const found = FindPrinter(printer)) found->OnGone(why);
}

void Service::OnOutcome(std::int64_t job) {
  const auto [first, last] = waiting_.equal_range(job);
  std::vector<Then> told;
  for (auto it = first; it != last; ++it) told.push_back(std::move(it->second));
  waiting_.erase(first, last);
  for (const auto& then : told) then();
}

void Service::OnNews() {
  for (const auto& then : on_events_) then();
}

}  // namespace puerta
