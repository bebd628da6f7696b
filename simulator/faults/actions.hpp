#pragma once

#include <span>
#include <string_view>

#include "commands/printer.hpp"
#include "faults/draft.hpp"
#include "faults/rule.hpp"

namespace impresora {

class RuleReader;

// Actions take their turn in this order, whatever the order they are written in.
enum class Phase { kState, kParts, kWhole, kBytes, kLeaving };
inline constexpr std::array kPhases{Phase::kState, Phase::kParts, Phase::kWhole, Phase::kBytes,
                                    Phase::kLeaving};

// What an action works on.
struct Scene {
  Draft& draft;
  Printer& printer;
  Answer* answer;  // null while the command has not been carried out
  std::string_view former;
  Chance& chance;
};

// `read` takes the arguments behind the name; `run` returns whether there was anything to do.
struct ActionRow {
  std::string_view name;   // one or two words
  std::string_view usage;  // for people who wrote it wrong
  unsigned subjects;
  Phase phase;
  void (*read)(RuleReader&, Action&);
  bool (*run)(const Action&, Scene&);
};

// Names of two words before those of one that begin alike.
std::span<const ActionRow> Actions();

}  // namespace impresora
