#pragma once

#include <string>
#include <string_view>

#include "protocol/answer.hpp"
#include "state/causes.hpp"

namespace kestra {

struct Library;
class SafeLine;

// What came of a question.
struct Reply {
  bool answered = false;
  Fields fields{};             // the status words and the data fields
  Cause cause = Cause::kNone;  // why it was not answered
};

// Asks the printer something that prints nothing, in either mode: a legal answer of its own counts and
// nothing else. No box is shown, and of the state record it touches the sequence numbers alone; what the
// answer says of an open document goes to the ledger.
Reply Ask(Library& library, const std::string& command);

// What a legal answer tells the ledger of the printer's books.
void Learn(Library& library, std::string_view command, const Fields& fields) noexcept;

// Once, on a line that somebody has open.
Reply AskOn(SafeLine& line, Library& library, const std::string& command);

}  // namespace kestra
