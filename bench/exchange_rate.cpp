#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

#include "bare_line.hpp"
#include "calls.hpp"
#include "figures.hpp"
#include "median.hpp"
#include "moment.hpp"
#include "printer.hpp"
#include "workshop.hpp"

namespace kestra::bench {
namespace {

constexpr int kRounds = 9;
constexpr int kExchangesPerRound = 5'000;

// The seconds that `exchange` takes; negative when it failed.
template <typename Exchange>
double Timed(Exchange exchange) {
  const Moment begin = Now();
  const bool done = exchange();
  const double seconds = Seconds(Now() - begin);
  return done ? seconds : -1.0;
}

double MedianRatio(const std::vector<double>& dividends, const std::vector<double>& divisors) {
  std::vector<double> ratios;
  std::transform(dividends.begin(), dividends.end(), divisors.begin(), std::back_inserter(ratios),
                 std::divides<>());
  return Median(std::move(ratios));
}

// Each iteration does one exchange through the library and one on the bare line, timed apart, with
// the same printer: where the system places it weighs on both alike. They take turns at being
// first, so that what one leaves behind falls on both. The ratio is the median of the iterations'
// own: the two halves of one iteration find the machine in the same state, two of different seconds
// need not. The rates beside it are those of each side's median exchange.
void ExchangeRate(benchmark::State& state) {
  const Printer printer(Manner::kInstant);
  const Workshop workshop(printer);
  BareLine bare(printer.Path(), "K");
  std::vector<double> library_times;
  std::vector<double> floor_times;
  const auto library = [&] { library_times.push_back(Timed(CutPaper)); };
  const auto floor = [&] { floor_times.push_back(Timed([&] { return bare.Exchange(); })); };
  bool library_first = false;
  for (auto _ : state) {
    library_first = !library_first;
    if (library_first) library();
    floor();
    if (!library_first) library();
    if (library_times.back() < 0 || floor_times.back() < 0) {
      state.SkipWithError(Failed("an exchange failed"));
      return;
    }
    state.SetIterationTime(library_times.back());
  }
  const double ratio = MedianRatio(floor_times, library_times);
  state.counters["library/s"] = 1 / Median(library_times);
  state.counters["floor/s"] = 1 / Median(floor_times);
  state.counters["ratio"] = ratio;
  Note(Figure::kExchangeRate, ratio);
}
BENCHMARK(ExchangeRate)
    ->Iterations(kExchangesPerRound)
    ->Repetitions(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kestra::bench
