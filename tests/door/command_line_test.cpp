#include "program/command_line.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace puerta {
namespace {

struct Row {
  std::vector<std::string> words;
  Mode mode;
  std::string configuration;
  bool understood;
};

TEST(Options, WordsOfTheCommandLine) {
  const std::vector<Row> rows{
      {{}, Mode::kServe, "puerta.json", true},
      {{"--configuracion", "otra.json"}, Mode::kServe, "otra.json", true},
      {{"--ayuda"}, Mode::kHelp, "puerta.json", true},
      {{"--version"}, Mode::kVersion, "puerta.json", true},
      {{"--clave-nueva"}, Mode::kNewKey, "puerta.json", true},
      {{"--trabajador"}, Mode::kWorker, "puerta.json", true},
      {{"--servicio", "--configuracion", "c.json"}, Mode::kService, "c.json", true},
      {{"--configuracion"}, Mode::kServe, "puerta.json", false},
      {{"puerta.json"}, Mode::kServe, "puerta.json", false},
  };
  for (const auto& row : rows) {
    const auto options = ReadOptions(row.words);
    EXPECT_EQ(options.mode, row.mode);
    EXPECT_EQ(options.configuration, row.configuration);
    EXPECT_EQ(options.error.empty(), row.understood);
  }
}

}  // namespace
}  // namespace puerta
