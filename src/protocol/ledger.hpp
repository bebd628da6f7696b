#pragma once

#include <optional>
#include <string_view>

#include "protocol/books.hpp"
#include "state/certainty.hpp"

namespace kestra {

struct State;

// What the printer's books showed when they were asked about a command.
struct Books {
  bool open = false;     // a document, by the fiscal word
  bool refused = false;  // the question, as out of place
  std::optional<Counters> counters{};
  std::optional<Subtotal> subtotal{};
  std::optional<bool> day_empty{};
  std::string_view text{};  // of the header's line
  std::string_view date{};  // of the clock
  std::string_view time{};
  double passed = 0;  // seconds since the command was first sent
};

enum class Finding { kDone, kNotDone, kAbsent, kDisagree };

// Whether a command that may have been carried out after `before` was: what the books must show is what
// stood in the ledger and what the command adds to it.
Finding Compare(const Ledger& before, std::string_view command, const State& digits,
                const Books& books);

// The command is known to be done.
void Enter(Ledger& ledger, std::string_view command, const State& digits);

// Nobody knows whether it was done: what depends on it is not known either.
void Blur(Ledger& ledger, std::string_view command);

// The number that the printer gave the document that this command closed, or this daily closing.
void EnterNumber(Ledger& ledger, std::string_view command, std::string_view number);

// What the books showed replaces what was only reckoned.
void EnterSubtotal(Ledger& ledger, const Subtotal& subtotal);
void EnterCounters(Ledger& ledger, const Counters& counters);

// Of any legal answer: whether a document is open.
void EnterWords(Ledger& ledger, const Words& words);

}  // namespace kestra
