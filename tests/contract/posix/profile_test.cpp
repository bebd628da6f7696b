#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "contract/shared/profile_rows.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/posix/files.hpp"

namespace kestra {

namespace {

class PosixProfileTest : public ::testing::Test {
 protected:
  std::string Value() { return profile_.Read("S", "K", ".\\Fiscal.ini"); }

  ScratchDirectory scratch_;
  PosixProfile profile_;
};

TEST_F(PosixProfileTest, ALineWithoutAnEqualsSignIsNoKey) {
  WriteFile("Fiscal.ini", "[S]\nK\nK=12\n");
  EXPECT_EQ(Value(), "12");
}

TEST_F(PosixProfileTest, AZeroByteInAValueIsAByte) {
  WriteFile("Fiscal.ini", std::string("[S]\nK=a\0b\n", 10));
  EXPECT_EQ(Value(), std::string("a\0b", 3));
}

TEST_F(PosixProfileTest, AHugeFileIsEmpty) {
  const std::string key = "[S]\nK=1\n";
  WriteFile("Fiscal.ini", key + std::string((1 << 20) - key.size(), '\n'));
  EXPECT_EQ(Value(), "1");
  WriteFile("Fiscal.ini", key + std::string((1 << 20) - key.size() + 1, '\n'));
  EXPECT_EQ(Value(), "");
}

TEST_F(PosixProfileTest, IsFoundUnderAPathWithBackslashes) {
  std::filesystem::create_directory("caja");
  WriteFile("caja/Fiscal.ini", "[S]\nK=1\n");
  EXPECT_EQ(profile_.Read("S", "K", scratch_.Path() + "\\caja\\Fiscal.ini"), "1");
}

TEST_F(PosixProfileTest, TheExactNameGoesBeforeAnotherCase) {
  WriteFile("FISCAL.INI", "[S]\nK=1\n");
  WriteFile("Fiscal.ini", "[S]\nK=2\n");
  EXPECT_EQ(Value(), "2");
}

TEST_F(PosixProfileTest, OfSeveralOtherCasesTheFirstByNameServes) {
  WriteFile("fiscal.ini", "[S]\nK=2\n");
  WriteFile("FISCAL.INI", "[S]\nK=1\n");
  EXPECT_EQ(Value(), "1");
}

TEST_F(PosixProfileTest, APipeOfThatNameIsEmptyAndStopsNobody) {
  ASSERT_EQ(::mkfifo("Fiscal.ini", 0600), 0);
  EXPECT_EQ(Value(), "");
}

}  // namespace
}  // namespace kestra
