#include <utility>

#include "store/store_file.hpp"

namespace puerta {

StoreFile::StoreFile(StoreOptions options)
    : options_(std::move(options)), file_(options_.path), database_(file_.Open()) {}

void StoreFile::Write(Events events, Moment now) {
  for (const Event& event : events) WriteOne(event, now);
}

std::int64_t StoreFile::WriteOne(const Event& event, Moment now) {
  const bool publish = event.publish && options_.publishes;
  const std::int64_t sequence = publish ? NextInSequence(event.printer) : 0;
  database_
      .Use(
          "INSERT INTO eventos(impresora, clase, momento, datos, secuencia, clave) "
          "VALUES (?, ?, ?, ?, ?, lower(hex(randomblob(16))))")
      .Bind(event.printer)
      .Bind(event.kind)
      .Bind(now.time_since_epoch().count())
      .Bind(event.data)
      .Bind(sequence)
      .Run();
  const std::int64_t id = database_.LastRow();
  if (publish) {
    database_.Use("INSERT INTO salida VALUES (?, ?)").Bind(event.printer).Bind(id).Run();
  }
  return id;
}

std::int64_t StoreFile::NextInSequence(const std::string& printer) {
  Query next = database_.Use(
      "INSERT INTO secuencias VALUES (?, 1) "
      "ON CONFLICT(impresora) DO UPDATE SET ultima = ultima + 1 RETURNING ultima");
  next.Bind(printer).Step();
  const std::int64_t sequence = next.Number();
  next.Run();
  return sequence;
}

std::int64_t StoreFile::Add(const Event& event, Moment now) {
  Transaction transaction(database_);
  const std::int64_t id = WriteOne(event, now);
  transaction.Commit();
  return id;
}

std::vector<StoredEvent> StoreFile::EventsAfter(std::int64_t id, int most) {
  Query find = database_.Use(
      "SELECT id, momento, impresora, clase, datos, secuencia FROM eventos WHERE id > ? "
      "ORDER BY id LIMIT ?");
  find.Bind(id).Bind(most);
  std::vector<StoredEvent> events;
  while (find.Step()) {
    StoredEvent& next = events.emplace_back();
    next.id = find.Number();
    next.moment = Moment{std::chrono::milliseconds{find.Number()}};
    next.event.printer = find.Text();
    next.event.kind = find.Text();
    next.event.data = find.Text();
    next.event.publish = find.Number() != 0;
  }
  return events;
}

std::int64_t StoreFile::LastEvent() {
  return database_.Number(
      "SELECT coalesce(max(seq), 0) FROM sqlite_sequence WHERE name = 'eventos'");
}

std::int64_t StoreFile::Unpublished() {
  return database_.Number("SELECT count(*) FROM salida");
}

// Events are in the order of their time: the first that is young enough ends it.
std::int64_t StoreFile::Prune(Moment age_limit, int most) {
  const std::int64_t limit = age_limit.time_since_epoch().count();
  Transaction transaction(database_);
  database_
      .Use(
          "UPDATE trabajos SET cuerpo = '', antes = '' WHERE numero IN (SELECT numero FROM "
          "trabajos "
          "WHERE cuerpo <> '' AND terminado > 0 AND terminado < ? ORDER BY terminado LIMIT ?)")
      .Bind(limit)
      .Bind(most)
      .Run();
  std::int64_t forgotten = database_.Changes();
  database_
      .Use(
          "DELETE FROM eventos WHERE id IN (SELECT id FROM eventos AS e WHERE id < coalesce("
          "(SELECT id FROM eventos WHERE momento >= ? ORDER BY id LIMIT 1), 9223372036854775807) "
          "AND NOT EXISTS (SELECT 1 FROM salida WHERE impresora = e.impresora AND evento = e.id) "
          "ORDER BY id LIMIT ?)")
      .Bind(limit)
      .Bind(most)
      .Run();
  forgotten += database_.Changes();
  if (forgotten > 0) transaction.Commit();
  return forgotten;
}

}  // namespace puerta
