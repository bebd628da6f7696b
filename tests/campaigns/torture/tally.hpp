#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>

#include "campaigns/torture/strike.hpp"

namespace kestra::torture {

// What became of the strikes on one target.
struct Row {
  long runs = 0;          // in which the strike met something
  long failures = 0;      // of the target
  long told_failure = 0;  // calls in which the target failed: the host heard of it
  long told_success = 0;  // and these where it did not
  long boxes = 0;         // shown to the operator in those calls
};

struct Tally {
  std::array<Row, kTargets> rows{};
  long calls = 0;            // of the library, in all runs
  long checks = 0;           // healthy calls made afterwards
  std::int64_t longest = 0;  // virtual microseconds of a struck call
  // "export after target": runs in which it succeeded although the target failed.
  std::map<std::string, long> successes{};
};

void Print(const Tally& tally, std::ostream& out);

}  // namespace kestra::torture
