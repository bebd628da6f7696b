#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "golden/session.hpp"

// Plays every case of the cases folder and compares what comes of it with the file itself. With
// --actualizar (or KESTRA_GOLDEN_UPDATE=1) the files are rewritten instead: read what changed.
namespace kestra::golden {
namespace {

namespace fs = std::filesystem;

bool updating = false;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void WriteFile(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

class GoldenCase : public testing::Test {
 public:
  explicit GoldenCase(fs::path path) : path_(std::move(path)) {}

  void TestBody() override {
    const std::string expected = ReadFile(path_);
    const Played played = Play(expected);
    ASSERT_EQ(played.fault, "") << "in " << path_;
    if (updating) {
      if (played.text != expected) WriteFile(path_, played.text);
    } else {
      EXPECT_EQ(expected, played.text) << "in " << path_;
    }
  }

 private:
  fs::path path_;
};

std::vector<fs::path> CaseFiles(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".golden") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

void RegisterCases(const fs::path& folder) {
  for (const fs::path& path : CaseFiles(folder)) {
    const std::string topic = path.parent_path().filename().string();
    const std::string name = path.stem().string();
    testing::RegisterTest(topic.c_str(), name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [path]() -> testing::Test* { return new GoldenCase(path); });
  }
}

}  // namespace
}  // namespace kestra::golden

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const char* const wish = std::getenv("KESTRA_GOLDEN_UPDATE");
  kestra::golden::updating = wish != nullptr && std::string_view(wish) == "1";
  for (int i = 1; i < argc; ++i) {
    if (std::string_view(argv[i]) != "--actualizar") {
      std::cerr << "argumento desconocido: " << argv[i] << "\n";
      return 2;
    }
    kestra::golden::updating = true;
  }
  kestra::golden::RegisterCases(KESTRA_GOLDEN_CASES);
  return RUN_ALL_TESTS();
}
