// What the program is asked for on its command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace puerta {

enum class Mode { kServe, kWorker, kHelp, kVersion, kService, kNewKey };

struct Options {
  Mode mode = Mode::kServe;
  std::string configuration = "puerta.json";
  std::string error = {};  // why they cannot be understood
};

Options ReadOptions(const std::vector<std::string>& words);
std::string_view Usage();

}  // namespace puerta
