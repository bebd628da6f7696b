#include "golden/case_files.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kestra::golden {
namespace {

namespace fs = std::filesystem;

std::string TextOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

}  // namespace

std::vector<Case> ReadCases(const std::string& folder) {
  std::vector<Case> cases;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".golden") continue;
    cases.push_back({fs::relative(entry.path(), folder).string(), TextOf(entry.path())});
  }
  std::sort(cases.begin(), cases.end(),
            [](const Case& a, const Case& b) { return a.name < b.name; });
  return cases;
}

}  // namespace kestra::golden
