#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>

#include "figures.hpp"

// Ends with 0 whatever the figures say: a busy machine is no fault of the library. Only what could
// not be measured is a failure.
int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  try {
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The bench cannot go on: %s\n", error.what());
    return 1;
  }
  kestra::bench::PrintFigures();
  benchmark::Shutdown();
  return kestra::bench::AnythingFailed() ? 1 : 0;
}
