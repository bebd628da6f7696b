#pragma once

#include <string>

namespace kestra::tool {

// A line that somebody has begun, completed as far as there is one way to go on.
struct TypedLine {
  std::string line;
  std::string choices;  // where there are several: on lines of their own, to be shown before it
};

TypedLine Completed(const std::string& line);

}  // namespace kestra::tool
