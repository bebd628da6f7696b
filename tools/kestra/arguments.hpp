#pragma once

#include <span>
#include <string>

#include "command.hpp"

namespace kestra::tool {

// The words behind a command's name, by its table of options; throws Stop for one that is none.
Request ReadArguments(const Command& command, std::span<const std::string> words);

// How the program is used, and how one command is.
std::string ProgramHelp();
std::string CommandHelp(const Command& command);

}  // namespace kestra::tool
