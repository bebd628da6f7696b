#pragma once

#include <iostream>

#include "prompt/line_editor.hpp"

namespace kestra::tool {

// As the terminal gives them.
class PlainLines : public LineEditor {
 public:
  std::optional<std::string> Read(const std::string& prompt) override {
    std::cout << prompt << std::flush;
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return line;
  }
};

}  // namespace kestra::tool
