#include <benchmark/benchmark.h>

#include <algorithm>

#include "calls.hpp"
#include "figures.hpp"
#include "moment.hpp"
#include "printer.hpp"
#include "workshop.hpp"

namespace kestra::bench {
namespace {

constexpr int kRounds = 3;
constexpr int kItems = 10;

bool IssueTicket() {
  bool done = OpenTicket();
  for (int item = 0; item < kItems; ++item) done = PrintItem() && done;
  done = PrintPayment() && done;
  return CloseTicket() && done;
}

// From the first call until the last acknowledgement has crossed the line, against the time that
// the ticket's bytes of both directions need on it.
void PacedTicket(benchmark::State& state) {
  const Printer printer(Manner::kPaced);
  const Workshop workshop(printer);
  for (auto _ : state) {
    const Moment begin = Now();
    const bool done = IssueTicket();
    const Moment returned = Now();
    if (!done || !printer.AllAcknowledged()) {
      state.SkipWithError(Failed("the ticket was not issued"));
      return;
    }
    const Tally& seen = printer.Seen();
    const double elapsed = Seconds(std::max(returned, seen.received_until.load()) - begin);
    const auto bytes = static_cast<Moment>(seen.bytes_received + seen.bytes_sent);
    const double wire = Seconds(bytes * kByteTime);
    state.SetIterationTime(elapsed);
    state.counters["exchanges"] = static_cast<double>(seen.answers);
    state.counters["bytes"] = static_cast<double>(bytes);
    state.counters["wire_ms"] = wire * 1e3;
    state.counters["ratio"] = elapsed / wire;
    Note(Figure::kPacedTicket, elapsed / wire);
  }
}
BENCHMARK(PacedTicket)
    ->Iterations(1)
    ->Repetitions(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestra::bench
