#include "state/journal_writing.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "base/ansi.hpp"
#include "state/journal_days.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

std::string Beginning(Library& library) {
  return TextOf(NewRecord(library, RecordKind::kBeginning, library.certainty.journal.newest));
}

// A clock that is years ahead for a day must not take all history along.
constexpr int kMostDeletedAtOnce = 2;

void DeleteOutdated(Library& library, std::vector<std::string> kept, std::string_view day) {
  std::sort(kept.begin(), kept.end());
  int deleted = 0;
  for (const auto& suffix : kept) {
    if (deleted == kMostDeletedAtOnce) return;
    if (!IsOutdated(suffix, day, library.certainty.settings.DiarioDias)) continue;
    deleted += static_cast<int>(WithoutFailing([&] { FileOf(library).DeleteKept(suffix); }));
  }
}

}  // namespace

std::string MomentNow(Library& library) {
  auto& clock = library.platform.GetClock();
  const auto second_of_day = clock.TimeOfDay();
  return MomentOf(clock.IsoDate(), second_of_day);
}

JournalFile& FileOf(Library& library) {
  return library.platform.GetJournalFile();
}

Failure JournalFailure(std::string_view words, Cause cause) {
  return {75, std::string(words), static_cast<std::int32_t>(cause)};
}

JournalRecord NewRecord(Library& library, RecordKind kind, std::int64_t number) {
  JournalRecord record;
  record.kind = kind;
  record.number = number;
  record.moment = MomentNow(library);
  record.printer = library.certainty.journal.printer;
  record.ledger = library.certainty.ledger;
  return record;
}

void CutTail(Library& library) {
  auto& journal = library.certainty.journal;
  FileOf(library).Truncate(journal.length);
  journal.torn = false;
}

void Write(Library& library, std::string_view record) {
  auto& journal = library.certainty.journal;
  auto& file = FileOf(library);
  if (!file.IsOpen()) throw JournalFailure("El diario no está abierto"_ansi, journal.trouble);
  if (journal.torn) CutTail(library);
  const std::string text = (journal.length == 0 ? Beginning(library) : std::string())
                               .append(journal.owed)
                               .append(record);
  journal.torn = true;
  try {
    file.Append(text);
  } catch (...) {
    WithoutFailing([&] { CutTail(library); });
    throw;
  }
  journal.torn = false;
  journal.last = journal.length + text.rfind('\n', text.size() - 2) + 1;  // npos + 1 is 0
  journal.length += text.size();
  journal.owed.clear();
}

void MarkGap(Library& library) {
  auto& journal = library.certainty.journal;
  const auto room = journal.length - journal.last;
  if (room == 0) return;
  const auto kind = journal.last == 0 ? RecordKind::kBeginning : RecordKind::kGap;
  auto record = NewRecord(library, kind, journal.newest);
  record.ledger = {};
  record.moment.append(room - TextOf(record).size(), ' ');
  FileOf(library).Overwrite(journal.last, TextOf(record));
  journal.last = journal.length;
  journal.owed.clear();
}

void BeginAnew(Library& library) {
  auto& journal = library.certainty.journal;
  auto& file = FileOf(library);
  const auto day = library.platform.GetClock().IsoDate();
  const auto kept = file.Kept();
  Write(library, TextOf(NewRecord(library, RecordKind::kDayClosed, journal.newest)));
  file.BeginAnew(FreeSuffix(day, kept));
  journal.length = journal.last = 0;
  Write(library, {});
  DeleteOutdated(library, kept, day);
}

}  // namespace kestra
