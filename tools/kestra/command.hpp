#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestra::tool {

class Console;

// What the program ends with, for scripts.
enum class Exit : std::int32_t {
  kGood = 0,
  kFindings = 1,     // it works, and there is something to be mended
  kUsage = 2,        // the words were wrong: nothing was done
  kNoAnswer = 3,     // no port, or no answer from the printer
  kBadSettings = 4,  // no Fiscal.ini, or none that serves
  kRefused = 5,      // the printer refused, or nobody knows
  kBroken = 6,       // something of this machine fails: a file, memory
};

// Ends a command with a sentence for whoever called it.
class Stop : public std::exception {
 public:
  Stop(Exit exit, std::string words) : exit_(exit), words_(std::move(words)) {}

  [[nodiscard]] Exit Code() const noexcept { return exit_; }
  [[nodiscard]] const char* what() const noexcept override { return words_.c_str(); }

 private:
  Exit exit_;
  std::string words_;
};

// A word of the command line that begins with dashes.
struct Option {
  std::string_view name;   // "--puerto"
  std::string_view value;  // what stands behind it, for the help; empty for a switch
  std::string_view help;
};

// What was asked of a command: its options and the other words, in UTF-8.
struct Request {
  std::map<std::string, std::string, std::less<>> options;
  std::vector<std::string> operands;

  [[nodiscard]] bool Has(std::string_view option) const { return options.contains(option); }
  [[nodiscard]] std::optional<std::string> Value(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
  }
};

struct Command {
  std::string_view name;
  std::string_view operands;  // for the help
  std::size_t most_operands;
  std::string_view summary;
  std::span<const Option> options;
  Exit (*run)(const Request& request, Console& console);
};

std::span<const Command> Commands();

// Options that every command has.
std::span<const Option> CommonOptions();

}  // namespace kestra::tool
