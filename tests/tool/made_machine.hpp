#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "devices.hpp"
#include "platform/seam/port_fault.hpp"

namespace kestra::tool {

// What somebody meets who opens a port of the made machine.
struct MadeLine {
  std::optional<PortFault> fault;  // of opening it
  bool answers = false;
};

// The machine of these tests, in place of devices.hpp's and this_system.hpp's: ports that nobody has in a drawer.
struct MadeMachine {
  std::vector<PortInfo> ports;
  std::map<std::string, MadeLine> lines;  // by device; the others are silent
  std::optional<Signals> signals;
  std::uint64_t free_bytes = 1'000'000'000'000;
};

// The one that is looked at.
MadeMachine& TheMachine();

}  // namespace kestra::tool
