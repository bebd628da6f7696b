#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "fakes/trouble.hpp"

namespace kestra::torture {

// What can be struck: the points of the world in the order of kPointNames, and the heap behind them.
constexpr std::size_t kMemory = kPointNames.size();
constexpr std::size_t kTargets = kMemory + 1;

constexpr std::string_view TargetName(std::size_t target) {
  return target == kMemory ? std::string_view("memory") : kPointNames[target].name;
}

constexpr std::array<std::string_view, 3> kAilmentNames{"failure", "memory", "other"};

// One failure to be tried on a case: the nth call of the target, once or from then on.
struct Strike {
  std::size_t target = kMemory;
  int nth = 0;  // 0: none at all
  bool forever = false;
  Ailment ailment = Ailment::kFalla;  // the heap knows only one
};

// "write 3 forever memory"
std::string Describe(const Strike& strike);

}  // namespace kestra::torture
