#pragma once

#include <cstdint>
#include <string_view>

#include "commands/command.hpp"

namespace impresora {

// A command whose fields are each what they should be, and the printer that it came to.
struct Demand {
  const Machine& machine;
  const CommandRow& row;
  const Fields& fields;
};

// Something that a shop's printer refuses and this one takes unless it is strict.
struct StrictRule {
  std::string_view words;     // what it does not take
  std::string_view commands;  // bytes of those that it looks at; empty: all
  std::uint16_t error;
  bool (*broken)(const Demand&);
};

std::span<const StrictRule> StrictRules();

// The first that the command breaks, or null.
const StrictRule* BrokenRule(const Demand& demand);

}  // namespace impresora
