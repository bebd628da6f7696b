#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// What each system does in its own way. All texts are UTF-8.

// The words behind the program's name, and a terminal that shows UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// False when there is no such folder, or it may not be entered.
bool EnterFolder(const std::string& folder);
std::string CurrentFolder();

bool OutputIsTerminal();

// The value of a key of Fiscal.ini as the library reads it, in windows-1252; empty when there is none.
std::string ReadSetting(std::string_view key);

}  // namespace kestra::tool
