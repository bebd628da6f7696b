#include <array>
#include <utility>

#include "store/store_file.hpp"

namespace puerta {
namespace {

constexpr std::array<std::string_view, 6> kWords{"en_cola",  "imprimiendo", "hecho",
                                                 "no_hecho", "no_se_sabe",  "cancelado"};

std::int64_t Count(Moment moment) {
  return moment.time_since_epoch().count();
}

Moment MomentOf(std::int64_t milliseconds) {
  return Moment{std::chrono::milliseconds{milliseconds}};
}

std::int64_t Code(State state) {
  return static_cast<std::int64_t>(state);
}

// Of all columns, in the order of the table.
Job ReadJob(Query& row) {
  Job job;
  job.number = row.Number();
  job.till = row.Text();
  job.key = row.Text();
  job.printer = row.Text();
  job.operation = row.Text();
  job.hash = row.Text();
  job.body = row.Text();
  job.state = static_cast<State>(row.Number());
  job.before = row.Text();
  job.answer = row.Text();
  job.accepted = MomentOf(row.Number());
  job.began = MomentOf(row.Number());
  job.ended = MomentOf(row.Number());
  return job;
}

std::optional<Job> One(Query& query) {
  return query.Step() ? std::optional(ReadJob(query)) : std::nullopt;
}

std::vector<Job> All(Query& query) {
  std::vector<Job> jobs;
  while (query.Step()) jobs.push_back(ReadJob(query));
  return jobs;
}

bool SameRequest(const Job& job, const Request& request) {
  return job.hash == request.hash && job.printer == request.printer &&
         job.operation == request.operation;
}

}  // namespace

std::string_view WordsOf(State state) {
  return kWords.at(static_cast<std::size_t>(state));
}

Acceptance StoreFile::Accept(const Request& request, Moment now, Events events) {
  if (std::optional<Job> known = FindKey(request.till, request.key)) {
    const Novelty novelty = SameRequest(*known, request) ? Novelty::kKnown : Novelty::kOtherBody;
    return {novelty, *std::move(known)};
  }
  Transaction transaction(database_);
  Query insert = database_.Use(
      "INSERT INTO trabajos(caja, clave, impresora, operacion, resumen, cuerpo, estado, aceptado) "
      "VALUES (?, ?, ?, ?, ?, ?, 0, ?)");
  insert.Bind(request.till).Bind(request.key).Bind(request.printer).Bind(request.operation);
  insert.Bind(request.hash).Bind(request.body).Bind(Count(now)).Run();
  const std::int64_t number = database_.LastRow();
  Write(events, now);
  transaction.Commit();
  return {Novelty::kNew, Find(number).value()};
}

bool StoreFile::Begin(std::int64_t number, std::string_view before, Moment now, Events events) {
  Transaction transaction(database_);
  database_
      .Use(
          "UPDATE trabajos SET estado = 1, antes = ?, comenzado = ? WHERE numero = ? AND estado = "
          "0")
      .Bind(before)
      .Bind(Count(now))
      .Bind(number)
      .Run();
  return Changed(transaction, events, now);
}

bool StoreFile::Finish(std::int64_t number, const Outcome& outcome, Moment now, Events events) {
  const bool over = outcome.state != State::kUnknown || outcome.settled;
  Transaction transaction(database_);
  database_
      .Use(
          "UPDATE trabajos SET estado = ?, respuesta = ?, terminado = ? "
          "WHERE numero = ? AND terminado = 0")
      .Bind(Code(outcome.state))
      .Bind(outcome.answer)
      .Bind(over ? Count(now) : 0)
      .Bind(number)
      .Run();
  return Changed(transaction, events, now);
}

bool StoreFile::Cancel(std::int64_t number, std::string_view answer, Moment now, Events events) {
  Transaction transaction(database_);
  database_
      .Use(
          "UPDATE trabajos SET estado = 5, respuesta = ?, terminado = ? "
          "WHERE numero = ? AND estado = 0")
      .Bind(answer)
      .Bind(Count(now))
      .Bind(number)
      .Run();
  return Changed(transaction, events, now);
}

bool StoreFile::Changed(Transaction& transaction, Events events, Moment now) {
  if (database_.Changes() == 0) return false;
  Write(events, now);
  transaction.Commit();
  return true;
}

std::optional<Job> StoreFile::Find(std::int64_t number) {
  Query find = database_.Use("SELECT * FROM trabajos WHERE numero = ?");
  find.Bind(number);
  return One(find);
}

std::optional<Job> StoreFile::FindKey(std::string_view till, std::string_view key) {
  Query find = database_.Use("SELECT * FROM trabajos WHERE caja = ? AND clave = ?");
  find.Bind(till).Bind(key);
  return One(find);
}

// The index of what is not over is named: however many the years, a start looks at nothing else.
std::optional<Job> StoreFile::Next(std::string_view printer) {
  Query find = database_.Use(
      "SELECT * FROM trabajos INDEXED BY trabajos_pendientes WHERE impresora = ? AND estado = 0 "
      "AND terminado = 0 "
      "ORDER BY numero LIMIT 1");
  find.Bind(printer);
  return One(find);
}

std::int64_t StoreFile::Waiting(std::string_view printer) {
  Query count = database_.Use(
      "SELECT count(*) FROM trabajos INDEXED BY trabajos_pendientes WHERE impresora = ? AND estado "
      "= 0 AND terminado = 0");
  count.Bind(printer).Step();
  return count.Number();
}

std::int64_t StoreFile::Position(const Job& job) {
  if (job.state != State::kQueued || IsOver(job)) return 0;
  Query count = database_.Use(
      "SELECT count(*) FROM trabajos INDEXED BY trabajos_pendientes WHERE impresora = ? AND estado "
      "= 0 AND terminado = 0 AND numero <= ?");
  count.Bind(job.printer).Bind(job.number).Step();
  return count.Number();
}

std::vector<Job> StoreFile::Interrupted(std::string_view printer) {
  Query find = database_.Use(
      "SELECT * FROM trabajos INDEXED BY trabajos_pendientes WHERE impresora = ? AND estado IN (1, "
      "4) AND terminado = 0 "
      "ORDER BY numero");
  find.Bind(printer);
  return All(find);
}

std::vector<Job> StoreFile::JobsOf(std::string_view printer, std::int64_t before, int most) {
  Query find = database_.Use(
      "SELECT * FROM trabajos WHERE impresora = ?1 AND (?2 = 0 OR numero < ?2) "
      "ORDER BY numero DESC LIMIT ?3");
  find.Bind(printer).Bind(before).Bind(most);
  return All(find);
}

}  // namespace puerta
