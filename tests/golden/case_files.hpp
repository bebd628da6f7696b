#pragma once

#include <string>
#include <vector>

namespace kestra::golden {

struct Case {
  std::string name;  // folder and file
  std::string text;
};

// Every case below the folder, by name.
std::vector<Case> ReadCases(const std::string& folder);

}  // namespace kestra::golden
