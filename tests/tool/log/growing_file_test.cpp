#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "log/source.hpp"

namespace kestra::tool {
namespace {

// A till that writes, and somebody who reads along.
class GrowingFileTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              (std::string("kestra-log-") +
               testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Append(std::string_view text) {
    std::ofstream(folder_ / "fiscal.log", std::ios::binary | std::ios::app) << text;
  }
  void SetAside() { std::filesystem::rename(folder_ / "fiscal.log", folder_ / "fiscal.log.1"); }

  std::string Read() {
    std::string text;
    file_.ReadOn([&](std::string_view bytes) { text += bytes; });
    return text;
  }

  std::filesystem::path folder_;
  GrowingFile file_{
      std::filesystem::temp_directory_path() /
      (std::string("kestra-log-") + testing::UnitTest::GetInstance()->current_test_info()->name()) /
      "fiscal.log"};
};

TEST_F(GrowingFileTest, IsReadOnceAsItGrows) {
  EXPECT_EQ(Read(), "");
  Append("uno\n");
  EXPECT_EQ(Read(), "uno\n");
  EXPECT_EQ(Read(), "");
  Append("dos\n");
  Append("tres");
  EXPECT_EQ(Read(), "dos\ntres");
}

TEST_F(GrowingFileTest, OneThatWasSetAsideIsReadToItsEndFirst) {
  Append("uno\n");
  EXPECT_EQ(Read(), "uno\n");
  Append("dos\n");
  SetAside();
  Append("tres, de otro archivo\n");
  EXPECT_EQ(Read(), "dos\ntres, de otro archivo\n");
  Append("cuatro\n");
  EXPECT_EQ(Read(), "cuatro\n");
}

TEST_F(GrowingFileTest, OneThatBeganAnewIsReadFromItsBeginning) {
  Append("un archivo largo\n");
  Read();
  std::filesystem::remove(folder_ / "fiscal.log");
  Append("otro\n");
  EXPECT_EQ(Read(), "otro\n");
}

TEST_F(GrowingFileTest, IsNotHeldOpen) {
  Append("uno\n");
  Read();
  EXPECT_NO_THROW(SetAside());
}

}  // namespace
}  // namespace kestra::tool
