#include "state/journal_record.hpp"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "state/journal_fields.hpp"

namespace kestra {
namespace {

constexpr char kEnd = '\n';

// What a record may hold, each under its name, in the order in which it is written.
template <typename Record, typename Visit>
void Each(Record& record, Visit visit) {
  auto& ledger = record.ledger;
  visit("impresora", record.printer);
  visit("llamada", record.call);
  visit("comando", record.command);
  visit("libro", record.has_book);
  visit("previo", record.accepted);
  visit("desenlace", record.outcome);
  visit("causa", record.cause);
  visit("respuesta", record.answer);
  visit("abierto", ledger.open);
  visit("clase", ledger.kind);
  visit("letra", ledger.letter);
  visit("renglones", ledger.lines);
  visit("pagado", ledger.paid);
  visit("percepciones", ledger.perceptions);
  visit("total", ledger.total);
  visit("neto", ledger.net);
  visit("iva", ledger.iva);
  visit("contadores", ledger.counters);
  visit("jornada", ledger.something_today);
}

struct KindRow {
  RecordKind kind;
  std::string_view name;
};
constexpr std::array kKinds = {
    KindRow{RecordKind::kBeginning, "inicio"}, KindRow{RecordKind::kIntent, "intento"},
    KindRow{RecordKind::kResult, "resultado"}, KindRow{RecordKind::kBooks, "libros"},
    KindRow{RecordKind::kForgotten, "olvido"}, KindRow{RecordKind::kDayClosed, "cierre-de-dia"},
    KindRow{RecordKind::kGap, "hueco"},
};

// What stands in a record of another kind is not written.
bool Tells(RecordKind kind, std::string_view name) {
  const auto among = [name](std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  if (name == "impresora") return kind == RecordKind::kBeginning;
  if (among({"llamada", "comando", "libro", "previo"})) return kind == RecordKind::kIntent;
  if (among({"desenlace", "causa", "respuesta"})) return kind == RecordKind::kResult;
  return kind <= RecordKind::kBooks;
}

// Takes what stands before the next tab.
std::string_view TakePart(std::string_view& line) {
  const std::size_t end = std::min(line.find(kBetweenParts), line.size());
  const auto part = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return part;
}

// A name that is not known here is a later version's.
bool ReadPart(JournalRecord& record, std::string_view part) {
  const std::size_t equals = part.find('=');
  if (equals == std::string_view::npos) return false;
  bool good = true;
  Each(record, [&](std::string_view name, auto& value) {
    if (name == part.substr(0, equals)) good = ReadInto(value, Unescaped(part.substr(equals + 1)));
  });
  return good;
}

// The line without its sum, when that is right.
std::optional<std::string_view> Vouched(std::string_view line) {
  if (line.size() <= kSumDigits) return std::nullopt;
  const std::size_t before = line.size() - kSumDigits - 1;
  const auto body = line.substr(0, before);
  if (line[before] != kBetweenParts || line.substr(before + 1) != SumText(body))
    return std::nullopt;
  return body;
}

// The very first record may have been torn: it is the beginning of one, or the zeros that stand where
// nothing was written yet. Anything else is somebody's file.
bool IsTornBeginning(std::string_view text) {
  const std::string_view first = kKinds.front().name;
  const std::size_t zeros = std::min(text.find('\0'), text.size());
  const bool rest_is_empty = text.find_first_not_of('\0', zeros) == std::string_view::npos;
  const auto written = text.substr(0, zeros);
  return rest_is_empty && written.find(kEnd) == std::string_view::npos &&
         written.substr(0, first.size()) == first.substr(0, written.size());
}

// Whether that is the end of a command which was not done.
bool LeavesUndone(const JournalRecord& record) {
  const auto outcome = static_cast<Outcome>(record.outcome);
  return record.kind == RecordKind::kResult &&
         (outcome == Outcome::kRefused || outcome == Outcome::kNotSent ||
          outcome == Outcome::kNotDone);
}

void Take(JournalReading& reading, JournalRecord record) {
  if (record.kind == RecordKind::kDayClosed) return;
  if (record.kind == RecordKind::kBeginning) reading.printer = record.printer;
  if (record.kind != RecordKind::kForgotten) reading.ledger = record.ledger;
  reading.newest = std::max(reading.newest, record.number);
  if (record.kind == RecordKind::kBooks) return;
  auto intent = std::exchange(reading.open, std::nullopt);
  reading.in_part.reset();
  if (intent && !intent->accepted.empty() && LeavesUndone(record)) {
    intent->outcome = record.outcome;
    intent->cause = record.cause;
    reading.in_part = std::move(intent);
  }
  if (record.kind == RecordKind::kIntent) reading.open = std::move(record);
}

}  // namespace

std::string TextOf(const JournalRecord& record) {
  const auto row = std::find_if(kKinds.begin(), kKinds.end(),
                                [&](const KindRow& one) { return one.kind == record.kind; });
  RecordLine line(row->name);
  line.Part(std::to_string(record.number));
  line.Part(Escaped(record.moment));
  Each(record, [&](std::string_view name, const auto& value) {
    if (Tells(record.kind, name)) line.Add(name, value);
  });
  return std::move(line).Finished();
}

std::optional<JournalRecord> RecordOf(std::string_view line) {
  auto rest = Vouched(line);
  if (!rest) return std::nullopt;
  const auto name = TakePart(*rest);
  const auto row = std::find_if(kKinds.begin(), kKinds.end(),
                                [&](const KindRow& one) { return one.name == name; });
  if (row == kKinds.end()) return std::nullopt;
  JournalRecord record;
  record.kind = row->kind;
  if (!ReadInto(record.number, TakePart(*rest))) return std::nullopt;
  record.moment = Unescaped(TakePart(*rest));
  while (!rest->empty()) {
    if (!ReadPart(record, TakePart(*rest))) return std::nullopt;
  }
  return record;
}

JournalReading ReadJournal(std::string_view text) {
  JournalReading reading;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find(kEnd, at);
    if (end == std::string_view::npos) break;
    auto record = RecordOf(text.substr(at, end - at));
    const bool first = at == 0;
    const auto begin = std::exchange(at, end + 1);
    if (first && (!record || record->kind != RecordKind::kBeginning)) break;
    if (!record) continue;  // what stands behind it tells how it went on
    reading.begun = true;
    reading.last = begin;
    reading.length = at;
    Take(reading, *std::move(record));
  }
  reading.is_journal = reading.begun || IsTornBeginning(text);
  return reading;
}

}  // namespace kestra
