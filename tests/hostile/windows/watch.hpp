#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "guarded_call.hpp"
#include "programs/stories.hpp"

namespace armour {

using kestra::Expect;
using kestra::Fail;

// How a host has its floating-point units when it calls.
struct Habit {
  const char* name;
  FloatingPoint floating;
};

const std::vector<Habit>& Habits();
// Every exception of both units raises.
const Habit& EverythingTraps();

// A function as it is found by its name: nothing is known of it but the words that it takes.
struct Target {
  std::string_view name;
  std::uintptr_t address = 0;
  std::vector<std::uintptr_t> words{};
};

struct Outcome {
  std::int32_t result = 0;
  std::uint32_t fault = 0;             // what it raised; the machine was not looked at then
  std::vector<std::string> damages{};  // what it left otherwise than it found it
};

// Calls it with sentinels in the registers that belong to the caller. `misalignment`: bytes, of which 32-bit
// hosts leave the stack anywhere.
Outcome CallUnderWatch(const Target& target, const Habit& habit, std::uintptr_t misalignment = 0);

// Catches what the function raises, from here to the end of the process.
void BeginWatch();

// Fails for each damage and for a fault. A fault in a function leaves it half done: nothing that it does
// afterwards tells anything, so that the process ends there.
std::int32_t CallIntact(const Target& target, const Habit& habit, std::uintptr_t misalignment = 0);

}  // namespace armour
