#pragma once

#include <string>

#include "protocol/answer.hpp"
#include "protocol/ledger.hpp"
#include "state/causes.hpp"
#include "state/certainty.hpp"

namespace kestra {

struct Library;
class SafeLine;

// A command that may have been carried out.
struct Doubt {
  std::string command;
  Ledger before;      // what the printer had accepted when it was sent
  double passed = 0;  // seconds since it was; negative: nobody knows
};

// What the printer's books say of it.
struct Consultation {
  bool answered = false;
  Cause cause = Cause::kNone;  // why not, or why nothing can be told
  Finding finding = Finding::kAbsent;
  // The books' status words, and the data that the command's own answer would have had.
  Fields fields;
};

// Asks on an open line. What the books show goes to the ledger, and what they say of the command to the
// log.
Consultation Consult(SafeLine& line, Library& library, const Doubt& doubt);

}  // namespace kestra
