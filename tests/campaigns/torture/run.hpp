#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/torture/judge.hpp"
#include "campaigns/torture/strike.hpp"
#include "campaigns/torture/tally.hpp"

namespace kestra::torture {

// What one run of a case came to.
struct Outcome {
  std::array<int, kTargets> reached{};  // calls of each target
  int failures = 0;                     // of the struck one
  std::string complaint;                // the first; empty: the library stood it

  // Calls that succeeded although the target failed in them, each once. Nothing of it is on the heap,
  // whose blocks are counted.
  std::array<std::string_view, 48> successes{};
  std::size_t success_count = 0;
  void AddSuccess(std::string_view name);
};

// What the calls of a case do when nothing is struck, in order.
using Quiet = std::vector<QuietCall>;

// Plays the case under the strike, then calls the library once more in a world that is well again.
Outcome Run(std::string_view text, const Strike& strike, const Quiet& quiet, Tally& tally);

// Plays it without any, for the others to be compared with.
Quiet RunQuietly(std::string_view text, Tally& tally);

}  // namespace kestra::torture
