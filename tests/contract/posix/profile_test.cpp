#include <gtest/gtest.h>

#include <filesystem>

#include "contract/shared/odd_files.hpp"

namespace kestra {

namespace {

class PosixProfileTest : public OddFiles {};

TEST_F(PosixProfileTest, ALineWithoutAnEqualsSignIsNoKey) {
  WriteFile("Fiscal.ini", "[S]\nK\nK=12\n");
  EXPECT_EQ(Setting(), "12");
}

TEST_F(PosixProfileTest, AZeroByteInAValueIsAByte) {
  WriteFile("Fiscal.ini", std::string("[S]\nK=a\0b\n", 10));
  EXPECT_EQ(Setting(), std::string("a\0b", 3));
}

TEST_F(PosixProfileTest, AHugeFileIsEmpty) {
  const std::string key = "[S]\nK=1\n";
  WriteFile("Fiscal.ini", key + std::string((1 << 20) - key.size(), '\n'));
  EXPECT_EQ(Setting(), "1");
  WriteFile("Fiscal.ini", key + std::string((1 << 20) - key.size() + 1, '\n'));
  EXPECT_EQ(Setting(), "");
}

TEST_F(PosixProfileTest, IsFoundUnderAPathWithBackslashes) {
  std::filesystem::create_directory("caja");
  WriteFile("caja/Fiscal.ini", "[S]\nK=1\n");
  EXPECT_EQ(Setting(scratch_.Path() + "\\caja\\Fiscal.ini"), "1");
}

TEST_F(PosixProfileTest, OfSeveralOtherCasesTheFirstByNameServesButTheExactNameGoesBefore) {
  WriteFile("fiscal.ini", "[S]\nK=2\n");
  WriteFile("FISCAL.INI", "[S]\nK=1\n");
  EXPECT_EQ(Setting(), "1");
  WriteFile("Fiscal.ini", "[S]\nK=3\n");
  EXPECT_EQ(Setting(), "3");
}

}  // namespace
}  // namespace kestra
