// What became of a job that did not end by itself, out of what the journal and the printer's counters say. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sale/plan.hpp"
#include "worker/journal.hpp"

namespace puerta {

// The printer's counters; those that nobody told are missing.
using Counters = std::array<std::optional<std::int64_t>, kCounters>;

// The line with which a page without fiscal value that was not finished is ended: it cannot be cancelled.
inline constexpr std::string_view kIncomplete = "*** PAGINA INCOMPLETA ***";

enum class Fate { kDone, kNotDone, kUnknown };

struct Verdict {
  Fate fate = Fate::kUnknown;
  std::string number = {};  // of the document, when it was done and something tells
};

// Whether a document that is open now is one of that job's.
bool HasOpened(const Evidence& evidence, bool was_open_before);

// Whether nothing of it can have reached the printer.
bool HasDoneNothing(const Evidence& evidence);

// Nothing is open any more.
Verdict FateOf(const Plan& plan, const Evidence& evidence, const Counters& before,
               const Counters& now);

// "00000012"
std::string EightDigits(std::int64_t number);

}  // namespace puerta
