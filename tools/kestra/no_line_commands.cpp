#include <span>

#include "commands.hpp"

namespace kestra::tool {

std::span<const Command> LineCommands() {
  return {};
}

}  // namespace kestra::tool
