#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <fstream>

#include "calls.hpp"
#include "figures.hpp"
#include "printer.hpp"
#include "workshop.hpp"

namespace kestra::bench {
namespace {

constexpr int kFew = 1'000;
constexpr int kMany = 100'000;

// In bytes.
struct Memory {
  double in_use = 0;  // what malloc has handed out
  double taken = 0;   // what malloc holds of the system's
  double resident = 0;
};

double ResidentBytes() {
  std::size_t pages = 0;
  std::size_t resident_pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident_pages;
  return static_cast<double>(resident_pages) * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

Memory MemoryNow() {
  const struct mallinfo2 heap = ::mallinfo2();
  return {static_cast<double>(heap.uordblks), static_cast<double>(heap.arena + heap.hblkhd),
          ResidentBytes()};
}

// Exchanges of several kinds, in turn.
bool DoExchanges(int from, int to) {
  constexpr std::array kKinds = {OpenTicket, PrintItem, PrintPayment, CloseTicket, CutPaper};
  for (int i = from; i < to; ++i) {
    if (!kKinds[static_cast<std::size_t>(i) % kKinds.size()]()) return false;
  }
  return true;
}

void MemoryOverTime(benchmark::State& state) {
  const Printer printer(Manner::kInstant);
  const Workshop workshop(printer);
  for (auto _ : state) {
    const bool few_done = DoExchanges(0, kFew);
    const Memory after_few = MemoryNow();
    const bool many_done = DoExchanges(kFew, kMany);
    const Memory after_many = MemoryNow();
    if (!few_done || !many_done || printer.Seen().answers != kMany) {
      state.SkipWithError(Failed("an exchange failed"));
      return;
    }
    state.counters["heap_1k"] = after_few.in_use;
    state.counters["heap_100k"] = after_many.in_use;
    state.counters["resident_1k"] = after_few.resident;
    state.counters["resident_100k"] = after_many.resident;
    Note(Figure::kHeapGrowth, after_many.in_use - after_few.in_use);
    Note(Figure::kArenaGrowth, after_many.taken - after_few.taken);
    Note(Figure::kResidentGrowth, after_many.resident - after_few.resident);
  }
}
BENCHMARK(MemoryOverTime)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestra::bench
