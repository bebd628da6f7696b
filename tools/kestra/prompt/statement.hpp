#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// A word behind the name of an operation: what it is for, where that was said, and what it holds.
struct Word {
  std::string name;
  std::string text;
};

// ! ImprimirItem "Pan" 1 precio=100,50 => ...
struct Statement {
  bool has_to_fail = false;
  std::string name;  // empty: a blank line, or a comment
  std::vector<Word> words;
  std::optional<std::string> expected;  // what a result has to be
};

// Throws Stop for a line that is none.
Statement ReadStatement(std::string_view line);

}  // namespace kestra::tool
