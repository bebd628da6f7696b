// The pages that the door has in it, and the files of the till that it reads.
#include "pages/pages.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace puerta {
namespace {

TEST(Pages, HasTheContract) {
  const std::optional<Page> page = FindPage("/v1/openapi.json");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->type, "application/json");
  EXPECT_TRUE(page->body.starts_with("{"));
  EXPECT_NE(page->body.find("\"openapi\": \"3.1.0\""), std::string_view::npos);
}

TEST(Pages, HasAReferenceThatNeedsNothingFromElsewhere) {
  const std::optional<Page> page = FindPage("/documentacion");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->type, "text/html; charset=utf-8");
  EXPECT_NE(page->body.find("/v1/impresoras/{id}/comprobantes"), std::string_view::npos);
  for (const std::string_view from_elsewhere :
       {"<script", "src=", "http://", "https://", "@import", "url("})
    EXPECT_EQ(page->body.find(from_elsewhere), std::string_view::npos) << from_elsewhere;
}

TEST(Pages, HasNoOther) {
  for (const std::string_view path : {"", "/v1", "/documentacion/", "openapi.json"})
    EXPECT_FALSE(FindPage(path)) << path;
}

struct TillFolder : testing::Test {
  TillFolder() : folder(std::filesystem::path(testing::TempDir()) / "kestra-till-files") {
    std::filesystem::create_directories(folder / "deeper");
    for (const char* const name :
         {"index.html", "caja.js", "clave.txt", ".oculto.js", "deeper/dentro.js"})
      std::ofstream(folder / name) << name;
  }
  ~TillFolder() override { std::filesystem::remove_all(folder); }
  std::filesystem::path folder;
};

TEST_F(TillFolder, GivesItsFiles) {
  EXPECT_EQ(ReadTillFile(folder, "")->body, "index.html");
  EXPECT_EQ(ReadTillFile(folder, "index.html")->type, "text/html; charset=utf-8");
  EXPECT_EQ(ReadTillFile(folder, "caja.js")->type, "text/javascript; charset=utf-8");
}

TEST_F(TillFolder, GivesNothingElse) {
  for (const std::string_view name :
       {"clave.txt", ".oculto.js", "../caja.js", "deeper/dentro.js", "deeper", "otro.js", ".", "..",
        "caja.js/", "C:caja.js", "CAJA.JS", "caja"})
    EXPECT_FALSE(ReadTillFile(folder, name)) << name;
}

}  // namespace
}  // namespace puerta
