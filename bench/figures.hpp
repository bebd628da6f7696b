#pragma once

#include <cstddef>

namespace kestra::bench {

// What the bench is for: figures with a target each.
enum class Figure : std::size_t {
  kExchangeRate,
  kBusyProcessor,
  kPacedTicket,
  kHeapGrowth,
  kArenaGrowth,
  kResidentGrowth,
  kSafeRate,
  kJournalCost,
  kBareFlushes,
};

// Adds one measurement.
void Note(Figure figure, double measured);

// Takes down that something could not be measured; gives `why` back.
const char* Failed(const char* why);
bool AnythingFailed();

// Writes the figures measured in this run to standard output: the median, the spread, the target
// and whether the median meets it.
void PrintFigures();

}  // namespace kestra::bench
