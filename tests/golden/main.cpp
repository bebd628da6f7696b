#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include "golden/case_files.hpp"
#include "golden/session.hpp"

// Plays every case of the cases folder and compares what comes of it with the file itself. With
// --actualizar (or KESTRA_GOLDEN_UPDATE=1) the files are rewritten instead: read what changed.
namespace kestra::golden {
namespace {

namespace fs = std::filesystem;

bool updating = false;

void WriteFile(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

class GoldenCase : public testing::Test {
 public:
  explicit GoldenCase(Case played) : case_(std::move(played)) {}

  void TestBody() override {
    const Played played = Play(case_.text);
    ASSERT_EQ(played.fault, "") << "in " << case_.name;
    if (updating) {
      if (played.text != case_.text)
        WriteFile(fs::path(KESTRA_GOLDEN_CASES) / case_.name, played.text);
    } else {
      EXPECT_EQ(case_.text, played.text) << "in " << case_.name;
    }
  }

 private:
  Case case_;
};

void RegisterCases() {
  for (const Case& played : ReadCases(KESTRA_GOLDEN_CASES)) {
    const fs::path path(played.name);
    testing::RegisterTest(path.parent_path().filename().string().c_str(),
                          path.stem().string().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [played]() -> testing::Test* { return new GoldenCase(played); });
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
  kestra::golden::RegisterCases();
  return RUN_ALL_TESTS();
}
