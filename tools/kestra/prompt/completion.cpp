#include <algorithm>
#include <array>

#include "prompt/letters.hpp"
#include "prompt/line_editor.hpp"
#include "prompt/operations.hpp"

namespace kestra::tool {
namespace {

constexpr std::array<std::string_view, 2> kOwnWords{"ayuda", "salir"};
constexpr std::string_view kHelp = "ayuda";
constexpr std::string_view kBlanks = " \t";

// Whoever begins with the prefix goes on with it, and the others go without.
std::vector<std::string> NamesFor(std::string_view word) {
  std::vector<std::string> names;
  for (const Operation& row : Operations()) {
    const auto bare = row.name.substr(row.name.find('_') + 1);
    if (BeginsWith(bare, word)) names.emplace_back(bare);
    if (!word.empty() && BeginsWith(row.name, word)) names.emplace_back(row.name);
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

bool IsSaid(std::string_view line, std::string_view name) {
  const std::string assigned = std::string(" ").append(name).append("=");
  return line.find(assigned) != std::string_view::npos;
}

}  // namespace

std::vector<std::string> CompletionsOf(std::string_view before, std::string_view word) {
  before.remove_prefix(std::min(before.find_first_not_of(" \t!"), before.size()));
  const auto first = before.substr(0, before.find_first_of(kBlanks));
  if (first.empty() || first == kHelp) {
    auto names = NamesFor(word);
    for (const auto own : kOwnWords) {
      if (first.empty() && BeginsWith(own, word)) names.emplace_back(own);
    }
    return names;
  }
  std::vector<std::string> names;
  const Operation* const operation = FindOperation(first);
  if (operation == nullptr) return names;
  for (const Argument& argument : ArgumentsOf(*operation)) {
    const bool typed = argument.kind != Kind::kResult && argument.kind != Kind::kLength;
    if (typed && BeginsWith(argument.name, word) && !IsSaid(before, argument.name))
      names.push_back(std::string(argument.name) + "=");
  }
  return names;
}

}  // namespace kestra::tool
