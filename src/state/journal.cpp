#include "state/journal.hpp"

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "base/ansi.hpp"
#include "base/failure.hpp"
#include "state/journal_days.hpp"
#include "state/journal_record.hpp"
#include "state/journal_writing.hpp"
#include "state/library.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

// The command behind which the file begins anew.
constexpr std::string_view kDailyClosing = "9\x1CZ";

// A till that never closes a day gets a new file at the start-up behind so many bytes.
constexpr std::size_t kLargeFile = std::size_t{1} << 20;

bool IsAskedFor(const Library& library) {
  return !library.certainty.settings.Diario.empty();
}

Cause CauseFor(const std::exception& error) {
  const auto* const failure = dynamic_cast<const Failure*>(&error);
  if (failure == nullptr) return Cause::kJournalUnwritable;
  if (failure->Reason() != 0) return static_cast<Cause>(failure->Reason());
  return failure->Number() == kFileInUse ? Cause::kJournalBusy : Cause::kJournalUnwritable;
}

// Whether the journal did it. Why not is logged once, not at every command.
template <typename Action>
bool Succeeds(Library& library, Action action) noexcept {
  auto& trouble = library.certainty.journal.trouble;
  try {
    action();
    trouble = Cause::kNone;
    return true;
  } catch (const std::exception& error) {
    const auto before = std::exchange(trouble, CauseFor(error));
    if (before == trouble) return false;
    WithoutFailing([&] { EscribirLog(library, " - Diario : " + FailureText(ToFailure(error))); });
    return false;
  }
}

void RequireOurs(const Library& library, const JournalReading& reading) {
  if (!reading.is_journal) {
    throw JournalFailure("El archivo de Diario no es un diario, o está dañado"_ansi,
                         Cause::kJournalDamaged);
  }
  if (reading.begun && reading.printer != library.certainty.journal.printer) {
    throw JournalFailure(std::string("El diario es de otra impresora: ").append(reading.printer),
                         Cause::kJournalForeign);
  }
}

// The record's moment on this program's own clock. A wall clock that was put back in between tells nothing.
double SentAt(Library& library, const JournalRecord& intent) {
  const auto passed = SecondsBetween(intent.moment, MomentNow(library));
  if (!passed || *passed < 0) return kNever;
  return library.platform.GetClock().Elapsed() - *passed;
}

// What was in flight when a program ended. What no book shows can only be told, and so can what this program
// has another one before.
void TakePending(Library& library, const JournalRecord& intent) {
  auto& certainty = library.certainty;
  auto& pending = certainty.pending;
  const bool another = pending && pending->command != intent.command;
  if (!intent.has_book || another) {
    EscribirLog(library, std::string(" - Diario : No se sabe si se hizo "_ansi) + intent.call);
    return;
  }
  if (!pending) {
    pending = Pending{intent.call, intent.command, intent.accepted, intent.ledger,
                      SentAt(library, intent)};
    EscribirLog(library, " - Diario : Pendiente " + intent.call);
  }
  certainty.journal.unsettled = intent.number;
  certainty.journal.closes_day = intent.command.starts_with(kDailyClosing);
}

// The call may be made again, and what is done of it is not done again.
void TakeParts(Library& library, const JournalRecord& intent) {
  const Verdict verdict{static_cast<Outcome>(intent.outcome), static_cast<Cause>(intent.cause)};
  library.certainty.settled = Settled{.call = intent.call,
                                      .done = intent.accepted,
                                      .command = intent.command,
                                      .verdict = verdict,
                                      .answer = {}};
}

void TakeUp(Library& library, JournalReading& reading) {
  auto& certainty = library.certainty;
  const bool known = certainty.ledger.open.has_value();
  if (!known && !certainty.pending) certainty.ledger = reading.ledger;
  if (reading.open) TakePending(library, *reading.open);
  if (reading.in_part && !certainty.pending && !certainty.settled)
    TakeParts(library, *reading.in_part);
}

void Adopt(Library& library, const std::string& text) {
  auto& journal = library.certainty.journal;
  JournalReading reading = ReadJournal(text);
  RequireOurs(library, reading);
  journal.newest = reading.newest;
  journal.length = reading.length;
  journal.last = reading.last;
  if (reading.length < text.size()) CutTail(library);
  if (reading.begun) {
    TakeUp(library, reading);
  } else {
    Write(library, {});
  }
  if (journal.unsettled == 0 && journal.length > kLargeFile) BeginAnew(library);
}

void TakeFile(Library& library) {
  auto& file = FileOf(library);
  file.Open(library.certainty.settings.Diario);
  try {
    Adopt(library, file.Read());
  } catch (...) {
    file.Close();
    throw;
  }
}

// What was known of another printer says nothing of this one.
void ForgetOtherPrinter(Library& library, std::string_view printer) {
  auto& certainty = library.certainty;
  if (certainty.journal.printer.empty() || certainty.journal.printer == printer) return;
  const auto pending = std::exchange(certainty.pending, std::nullopt);
  certainty.settled.reset();
  certainty.settled_number.clear();
  certainty.ledger = {};
  certainty.unheard = false;
  if (pending) EscribirLog(library, " - Pendiente de otra impresora : " + pending->call);
}

}  // namespace

void OpenJournal(Library& library, std::string_view printer) noexcept {
  auto& certainty = library.certainty;
  auto& journal = certainty.journal;
  const bool same = journal.file == certainty.settings.Diario && journal.printer == printer;
  if (same && FileOf(library).IsOpen()) return;
  CloseJournal(library);
  const bool opened = Succeeds(library, [&] {
    ForgetOtherPrinter(library, printer);
    journal = {};
    journal.printer = printer;
    journal.file = certainty.settings.Diario;
    if (!IsAskedFor(library)) return;
    // Another program may have gone on with it since.
    if (!certainty.pending) certainty.ledger = {};
    TakeFile(library);
  });
  if (!opened) NoteCause(library, journal.trouble);
}

void PrepareJournal(Library& library) noexcept {
  if (!IsAskedFor(library) || FileOf(library).IsOpen()) return;
  Succeeds(library, [&] { TakeFile(library); });
}

bool KnowsJournal(Library& library) noexcept {
  if (library.certainty.journal.trouble == Cause::kNone) return true;
  PrepareJournal(library);
  return FileOf(library).IsOpen();
}

Cause JournalIntent(Library& library, const Pending& intent, IntentKind kind) noexcept {
  if (!IsAskedFor(library)) return Cause::kNone;
  auto& journal = library.certainty.journal;
  journal.unsettled = 0;
  const bool kept = Succeeds(library, [&] {
    auto record = NewRecord(library, RecordKind::kIntent, journal.newest + 1);
    record.call = intent.call;
    record.command = intent.command;
    record.accepted = intent.accepted;
    record.has_book = kind.has_book;
    record.ledger = intent.before;
    Write(library, TextOf(record));
  });
  if (kept) {
    journal.unsettled = ++journal.newest;
    journal.closes_day = intent.command.starts_with(kDailyClosing);
    return Cause::kNone;
  }
  if (kind.opens && library.certainty.settings.DiarioObligatorio == 1) return journal.trouble;
  WithoutFailing([&] { MarkGap(library); });
  NoteCause(library, Cause::kJournalSkipped);
  return Cause::kNone;
}

namespace {

bool IsAnswered(Outcome outcome) {
  return outcome == Outcome::kDone || outcome == Outcome::kRefused;
}

std::vector<std::string> Answer(const Library& library) {
  const auto& all = library.certainty.report.answer;
  std::vector<std::string> answer(all.begin(), all.end());
  while (!answer.empty() && answer.back().empty()) answer.pop_back();
  return answer;
}

// What became of the open intent. A record that cannot be written now goes before the next one.
template <typename Fill>
bool Settle(Library& library, RecordKind kind, Fill fill) noexcept {
  auto& journal = library.certainty.journal;
  const auto number = std::exchange(journal.unsettled, 0);
  std::string text;
  const bool kept = Succeeds(library, [&] {
    auto record = NewRecord(library, kind, number);
    fill(record);
    text = TextOf(record);
    Write(library, text);
  });
  if (kept) return true;
  journal.owed.swap(text);
  NoteCause(library, Cause::kJournalSkipped);
  return false;
}

}  // namespace

void JournalResult(Library& library, const Verdict& verdict) noexcept {
  auto& journal = library.certainty.journal;
  if (journal.unsettled == 0) return;
  const bool closes_day = journal.closes_day && verdict.outcome == Outcome::kDone;
  const bool kept = Settle(library, RecordKind::kResult, [&](JournalRecord& record) {
    record.outcome = static_cast<std::int64_t>(verdict.outcome);
    record.cause = static_cast<std::int64_t>(verdict.cause);
    if (IsAnswered(verdict.outcome)) record.answer = Answer(library);
  });
  if (kept && closes_day) Succeeds(library, [&] { BeginAnew(library); });
}

void JournalBooks(Library& library) noexcept {
  const auto& certainty = library.certainty;
  const bool between = certainty.journal.unsettled == 0 && !certainty.pending;
  if (!IsAskedFor(library) || !between || !FileOf(library).IsOpen()) return;
  Succeeds(library, [&] {
    const auto& journal = certainty.journal;
    Write(library, TextOf(NewRecord(library, RecordKind::kBooks, journal.newest)));
  });
}

void JournalForget(Library& library) noexcept {
  if (library.certainty.journal.unsettled == 0) return;
  Settle(library, RecordKind::kForgotten, [](const JournalRecord&) {});
}

void CloseJournal(Library& library) noexcept {
  auto& file = FileOf(library);
  if (file.IsOpen() && !library.certainty.journal.owed.empty()) {
    WithoutFailing([&] { Write(library, {}); });
  }
  file.Close();
}

}  // namespace kestra
