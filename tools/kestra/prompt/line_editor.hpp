#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// Lines that somebody types.
class LineEditor {
 public:
  virtual ~LineEditor() = default;

  // Nothing when there are no more.
  virtual std::optional<std::string> Read(const std::string& prompt) = 0;
};

// With completion and history where the system has a library for them and there is a terminal.
std::unique_ptr<LineEditor> MakeLineEditor();

// What the word may go on to be: names of operations, or behind one those of its arguments. `before`: the line up to
// the word.
std::vector<std::string> CompletionsOf(std::string_view before, std::string_view word);

}  // namespace kestra::tool
