#pragma once

#include <string_view>

#include "protocol/books.hpp"
#include "protocol/strict_answer.hpp"
#include "state/report.hpp"

namespace kestra {

// Whether a command has the printer do something or only tell something.
Errand ErrandOf(std::string_view command);

// What the two status words of an answer say of its command. A question is answered by a machine that
// does nothing else.
Verdict JudgeWords(const Words& words, Errand errand = Errand::kCommand);

// What can be known of a frame from what the line brought after it, `leftover` of which became neither an
// answer nor a word of the printer.
Verdict JudgeHeard(const Heard& heard, bool leftover, Errand errand = Errand::kCommand);

}  // namespace kestra
