#include "prompt/typed_line.hpp"

#include <algorithm>
#include <vector>

#include "prompt/line_editor.hpp"

namespace kestra::tool {
namespace {

std::string CommonBeginning(const std::vector<std::string>& words) {
  std::string common = words.front();
  for (const auto& word : words) {
    const auto [here, there] =
        std::mismatch(common.begin(), common.end(), word.begin(), word.end());
    common.erase(here, common.end());
  }
  return common;
}

}  // namespace

TypedLine Completed(const std::string& line) {
  const auto blank = line.find_last_of(" \t");
  const auto begin = blank == std::string::npos ? 0 : blank + 1;
  const auto before = line.substr(0, begin);
  const auto word = line.substr(begin);
  const auto candidates = CompletionsOf(before, word);
  if (candidates.empty()) return {.line = line, .choices = {}};
  if (candidates.size() == 1) {
    const auto& only = candidates.front();
    return {.line = before + only + (only.ends_with('=') ? "" : " "), .choices = {}};
  }
  const auto common = CommonBeginning(candidates);
  std::string choices = "\n";
  for (const auto& candidate : candidates) choices += "  " + candidate + "\n";
  return {.line = before + (common.size() < word.size() ? word : common), .choices = choices};
}

}  // namespace kestra::tool
