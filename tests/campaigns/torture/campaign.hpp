#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "campaigns/torture/tally.hpp"
#include "golden/case_files.hpp"

namespace kestra::torture {

struct Options {
  std::size_t every = 1;   // of the strikes, this many-th is made and the others are left out
  std::size_t first = 0;   // and the first of them is this one, counted from 0
  std::size_t share = 0;   // of the cases, those that are left over by ...
  std::size_t shares = 1;  // ... a division by this
  std::string only;        // a piece of the cases' names; empty: all
};

// Strikes each case at every call of every target, until it no longer reaches it. The result: what was
// not as it should be, a line each.
std::vector<std::string> Torture(const std::vector<golden::Case>& cases, const Options& options,
                                 Tally& tally);

}  // namespace kestra::torture
