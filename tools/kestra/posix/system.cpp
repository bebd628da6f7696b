#include "system.hpp"

#include <unistd.h>
#include <climits>

#include "platform/posix/files.hpp"

namespace kestra::tool {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

bool EnterFolder(const std::string& folder) {
  return ::chdir(folder.c_str()) == 0;
}

std::string CurrentFolder() {
  std::string path(PATH_MAX, '\0');
  return ::getcwd(path.data(), path.size()) == nullptr ? std::string() : path.c_str();
}

bool OutputIsTerminal() {
  return ::isatty(STDOUT_FILENO) == 1;
}

std::string ReadSetting(std::string_view key) {
  return PosixProfile().Read("Epson_Fiscal", key, ".\\Fiscal.ini");
}

}  // namespace kestra::tool
