#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "calls.hpp"
#include "figures.hpp"
#include "moment.hpp"
#include "printer.hpp"
#include "workshop.hpp"

namespace kestra::bench {
namespace {

double InSeconds(const timeval& span) {
  return static_cast<double>(span.tv_sec) + static_cast<double>(span.tv_usec) / 1e6;
}

// What this process, the printer's not included, has had of the processor.
double ProcessorSeconds() {
  rusage usage = {};
  ::getrusage(RUSAGE_SELF, &usage);
  return InSeconds(usage.ru_utime) + InSeconds(usage.ru_stime);
}

// One exchange with a printer that makes its host wait.
void BusyWait(benchmark::State& state) {
  const Printer printer(Manner::kBusy);
  const Workshop workshop(printer);
  for (auto _ : state) {
    const double processor_before = ProcessorSeconds();
    const Moment begin = Now();
    const bool done = CutPaper();
    const double waited = Seconds(Now() - begin);
    const double processor = ProcessorSeconds() - processor_before;
    if (!done || waited < Seconds(kBusyTime)) {
      state.SkipWithError(Failed("the printer was not waited for"));
      return;
    }
    state.SetIterationTime(waited);
    state.counters["processor_ms"] = processor * 1e3;
    state.counters["of_a_core"] = processor / waited;
    Note(Figure::kBusyProcessor, processor / waited);
  }
}
BENCHMARK(BusyWait)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestra::bench
