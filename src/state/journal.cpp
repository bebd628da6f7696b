#include "state/journal.hpp"

#include "state/library.hpp"

namespace kestra {
namespace {

bool IsAskedFor(const Library& library) {
  return !library.certainty.settings.Diario.empty();
}

}  // namespace

void OpenJournal(Library& library) noexcept {
  library.certainty.journal = {};
  if (IsAskedFor(library)) library.certainty.journal.trouble = Cause::kJournalUnwritable;
}

void PrepareJournal(Library& /*library*/) noexcept {}

Cause JournalIntent(Library& library, const Pending& /*intent*/, IntentKind kind) noexcept {
  if (!IsAskedFor(library)) return Cause::kNone;
  if (kind.opens && library.certainty.settings.DiarioObligatorio == 1) {
    return library.certainty.journal.trouble;
  }
  NoteCause(library, Cause::kJournalSkipped);
  return Cause::kNone;
}

void JournalResult(Library& /*library*/, const Verdict& /*verdict*/) noexcept {}

void JournalForget(Library& /*library*/) noexcept {}

void CloseJournal(Library& /*library*/) noexcept {}

}  // namespace kestra
