#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <string>

#include "calls.hpp"
#include "figures.hpp"
#include "moment.hpp"
#include "printer.hpp"
#include "workshop.hpp"

namespace kestra::bench {
namespace {

constexpr const char* kBase = "";
constexpr const char* kSafe = "ModoSeguro=1\n";
constexpr const char* kWithJournal = "ModoSeguro=1\nDiario=diario.txt\n";
constexpr const char* kJournal = "diario.txt";

// The seconds that one of so many calls takes, in a library started with these keys; negative when one failed.
template <typename Call>
double TimeOf(const Printer& printer, const char* keys, int calls, Call call) {
  const Workshop workshop(printer, keys);
  const Moment begin = Now();
  for (int i = 0; i < calls; ++i) {
    if (!call()) return -1.0;
  }
  return Seconds(Now() - begin) / calls;
}

// Without a fault the safe mode sends what the base mode sends. Blocks of exchanges take turns at being first.
void SafeMode(benchmark::State& state) {
  constexpr int kCalls = 2'000;
  const Printer printer(Manner::kInstant);
  bool safe_first = false;
  for (auto _ : state) {
    safe_first = !safe_first;
    const double first = TimeOf(printer, safe_first ? kSafe : kBase, kCalls, CutPaper);
    const double second = TimeOf(printer, safe_first ? kBase : kSafe, kCalls, CutPaper);
    if (first < 0 || second < 0) return state.SkipWithError(Failed("an exchange failed"));
    const double safe = safe_first ? first : second;
    state.SetIterationTime(safe);
    Note(Figure::kSafeRate, (safe_first ? second : first) / safe);
  }
}
BENCHMARK(SafeMode)->Iterations(12)->UseManualTime()->Unit(benchmark::kMicrosecond);

// What the disk takes for so many bytes at the end of a file.
double TimeOfFlush(std::size_t bytes) {
  constexpr int kTimes = 100;
  const int file = ::open(kJournal, O_WRONLY | O_APPEND | O_CREAT, 0600);
  const std::string record(bytes, 'x');
  const Moment begin = Now();
  bool done = file >= 0;
  for (int i = 0; i < kTimes && done; ++i) {
    done = ::write(file, record.data(), record.size()) == static_cast<ssize_t>(record.size()) &&
           ::fdatasync(file) == 0;
  }
  const double seconds = Seconds(Now() - begin) / kTimes;
  ::close(file);
  ::unlink(kJournal);
  return done ? seconds : -1.0;
}

// Each command is two records, each flushed: what that adds, and what the same bytes take alone.
void JournalCost(benchmark::State& state) {
  constexpr int kCalls = 100;
  constexpr std::size_t kRecord = 300;
  const Printer printer(Manner::kInstant);
  for (auto _ : state) {
    const double without = TimeOf(printer, kSafe, kCalls, PrintItem);
    const double with = TimeOf(printer, kWithJournal, kCalls, PrintItem);
    ::unlink(kJournal);
    const double flush = TimeOfFlush(kRecord);
    if (without < 0 || with < 0 || flush < 0) {
      return state.SkipWithError(Failed("the journal could not be measured"));
    }
    state.SetIterationTime(with);
    Note(Figure::kJournalCost, (with - without) * 1e3);
    Note(Figure::kBareFlushes, 2 * flush * 1e3);
  }
}
BENCHMARK(JournalCost)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestra::bench
