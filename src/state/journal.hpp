#pragma once

#include <string_view>

#include "state/causes.hpp"
#include "state/certainty.hpp"
#include "state/report.hpp"

namespace kestra {

struct Library;

// The journal that Diario names: each command's intent is on the disk before it is written to the port,
// its result after it. Without Diario nothing of this does anything. Nothing here throws: a journal
// that fails is a cause in the report, and DiarioObligatorio says what may go on without it.

// What of a command decides how its intent is read again.
struct IntentKind {
  bool opens = false;     // a document: refused without the journal when DiarioObligatorio is 1
  bool has_book = false;  // a later program can find out what became of it: it would be pending
};

// At start-up, when settings and port are known: reads the journal into certainty.pending and
// certainty.ledger. `printer` is whatever tells this one from others. What this program itself left pending
// without the journal stays.
void OpenJournal(Library& library, std::string_view printer) noexcept;

// At the beginning of a call, before anybody looks at certainty.pending: opens a journal that could not
// be opened before.
void PrepareJournal(Library& library) noexcept;

// False while the journal cannot be read: what an earlier program left behind is not known. Tries again.
bool KnowsJournal(Library& library) noexcept;

// Puts the intent on the disk; a command that is sent again stays with its first intent. The cause, if any,
// forbids the command. One that goes on without the journal has that cause in its report.
Cause JournalIntent(Library& library, const Pending& intent, IntentKind kind) noexcept;

// What became of the intent that has no result yet, of this program or of the one before it: its verdict, the
// report's answer, the ledger as it is now. Not for one that stays pending.
void JournalResult(Library& library, const Verdict& verdict) noexcept;

// Between commands: the printer has told counters that a program which comes after this one would not know.
void JournalBooks(Library& library) noexcept;

// The intent that has no result is dropped by hand.
void JournalForget(Library& library) noexcept;

// Lets go of the file.
void CloseJournal(Library& library) noexcept;

}  // namespace kestra
