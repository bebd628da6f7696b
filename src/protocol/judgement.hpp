#pragma once

#include <optional>

#include "protocol/books.hpp"
#include "state/report.hpp"

namespace kestra {

// What the books are asked for, and what follows from what they show.
struct Reading {
  // When the command was not carried out; without it the command is sent again.
  std::optional<Verdict> if_not_done{};
  Verdict if_absent{Outcome::kUnknown, Cause::kNoBook};
  bool then_cure = false;  // the mechanism has to be ready before it is sent again
  bool answered = false;   // its own answer came: only what it means is to be found out
};

enum class Next { kEnd, kAskBooks, kCure, kSendOnceMore };

struct Judgement {
  Next next = Next::kEnd;
  Reading reading{};  // where it ends, `if_absent` is the verdict
};

// What has come before an answer.
struct Before {
  bool doubted =
      false;  // another frame of the command, of which the books said that nothing was done
  bool refused = false;  // another frame, as one that the printer does not understand
};

// What a command's own answer says of it.
Judgement JudgeAnswer(const MethodRow& row, const Words& words, const Before& before);

// Whether the mechanism of a printer that says this can print.
bool CanPrint(const Words& words);

}  // namespace kestra
