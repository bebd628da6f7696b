#pragma once

#include <string_view>

#include "protocol/answer.hpp"
#include "state/causes.hpp"
#include "state/certainty.hpp"

namespace kestra {

struct Library;
class Patience;
class SafeLine;

// What became of the pending command.
struct Settlement {
  Outcome outcome = Outcome::kUnknown;
  Cause cause = Cause::kNone;
  bool settled = true;  // false: the printer did not answer, and it is pending still
  Fields fields;        // what its own answer would have been; a closing's number is the third
};

// A sheet that was turned is not the item for which it was.
bool IsTurnedSheet(std::string_view command, Outcome outcome);

// For when there is one: asks the printer's books about it until they answer or patience ends. No box is
// shown, and nothing is printed.
Settlement SettlePending(Library& library);
Settlement SettleOn(SafeLine& line, Library& library, Patience& patience);

// The host has been told of what was settled. The same call made now is no retry where a sale may have two
// alike, and of what nobody knows it need not be told again.
void TellSettled(Library& library);

// Drops what is pending, with a line in log and journal, and the sum by which a closing was refused, with one in
// the log. False: there was nothing.
bool ForgetPending(Library& library);
bool ForgetTotal(Library& library);

}  // namespace kestra
