#include <algorithm>
#include <exception>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arguments.hpp"
#include "command.hpp"
#include "console.hpp"
#include "json.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

bool AsksForHelp(const std::string& word) {
  return word == "--ayuda" || word == "--help" || word == "-h";
}

const Command* CommandOf(std::string_view name) {
  const auto commands = Commands();
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [name](const Command& row) { return row.name == name; });
  return found == commands.end() ? nullptr : &*found;
}

// What went wrong, for whoever reads.
Exit Failed(Console& console, Exit exit, const char* words) {
  console.Complain(words);
  if (console.WantsJson()) {
    Print(console, {{"error", words}, {"termina", static_cast<std::int32_t>(exit)}});
  }
  return exit;
}

Exit RunCommand(const Command& command, std::span<const std::string> words, Console& console) {
  const Request request = ReadArguments(command, words);
  const auto folder = request.Value("--carpeta");
  if (folder && !EnterFolder(*folder)) {
    throw Stop(Exit::kBadSettings, "no se puede entrar en la carpeta " + *folder);
  }
  return command.run(request, console);
}

Exit Run(std::span<const std::string> words) {
  const bool json = std::find(words.begin(), words.end(), "--json") != words.end();
  Console console(std::cout, std::cerr, json);
  try {
    if (words.empty()) throw Stop(Exit::kUsage, "falta la orden; ver kestra --ayuda");
    const Command* const command = CommandOf(words.front());
    const bool help = std::any_of(words.begin(), words.end(), AsksForHelp);
    if (command == nullptr && help) return console.Out() << ProgramHelp(), Exit::kGood;
    if (words.front() == "--version") return console.Line("kestra " KESTRA_VERSION), Exit::kGood;
    if (command == nullptr) {
      throw Stop(Exit::kUsage, "no se conoce la orden " + words.front() + "; ver kestra --ayuda");
    }
    if (help) return console.Out() << CommandHelp(*command), Exit::kGood;
    return RunCommand(*command, words.subspan(1), console);
  } catch (const Stop& stop) {
    return Failed(console, stop.Code(), stop.what());
  } catch (const std::exception& error) {
    return Failed(console, Exit::kBroken, error.what());
  }
}

}  // namespace
}  // namespace kestra::tool

int main(int argc, char** argv) {
  using namespace kestra::tool;
  return static_cast<int>(Run(ProgramArguments(argc, argv)));
}
