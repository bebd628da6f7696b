#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace impresora {

using Micros = std::chrono::microseconds;

// What the printer does to its line besides sending: the plug comes out, or its power goes.
enum class Ending { kNone, kHangUp, kPowerOff };

// Bytes that leave together, so long after the former ones; or an ending behind them.
struct Burst {
  Micros after{};
  std::string bytes{};
  Ending ending = Ending::kNone;
  Micros off_time{};  // how long the power stays away

  bool operator==(const Burst&) const = default;
};

// What the fault rules made of a command or of its answer.
struct Verdict {
  bool heard = true;  // false: the command is not carried out
  Micros busy{};      // the printer says for so long that it is busy before anything leaves
  std::vector<Burst> bursts{};
  std::vector<std::string> faults{};  // the actions that had an effect, as they were written
};

}  // namespace impresora
