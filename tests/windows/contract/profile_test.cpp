#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/profile_file.hpp"
#include "scratch.hpp"

namespace kestra {
namespace {

class ProfileFileTest : public ::testing::Test {
 protected:
  std::string Value(const std::string& file = ".\\Fiscal.ini") {
    return profile_.Read("S", "K", file);
  }

  ScratchDirectory scratch_;
  WindowsProfile profile_;
};

TEST_F(ProfileFileTest, IsFoundInTheCurrentDirectory) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value(), "12");
}

TEST_F(ProfileFileTest, ABareNameMeansTheCurrentDirectoryToo) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value("Fiscal.ini"), "12");
}

TEST_F(ProfileFileTest, FollowsTheCurrentDirectory) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=12\r\n");
  ::CreateDirectoryA("otra", nullptr);
  WriteFileText("otra\\Fiscal.ini", "[S]\r\nK=13\r\n");
  EXPECT_EQ(Value(), "12");
  ::SetCurrentDirectoryA("otra");
  EXPECT_EQ(Value(), "13");
}

TEST_F(ProfileFileTest, IsFoundInADirectoryThatTheCodePageCannotWrite) {
  ::CreateDirectoryW(L"\u6F22\u5B57", nullptr);
  ASSERT_TRUE(::SetCurrentDirectoryW(L"\u6F22\u5B57"));
  WriteFileText("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value(), "12");
}

TEST_F(ProfileFileTest, IsReadAnewEachTime) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value(), "12");
  WriteFileText("Fiscal.ini", "[S]\r\nK=un valor largo\r\n");
  EXPECT_EQ(Value(), "un valor largo");
}

TEST_F(ProfileFileTest, AValueHasAtMost254Characters) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=" + std::string(300, 'x') + "\r\n");
  EXPECT_EQ(Value(), std::string(254, 'x'));
}

TEST_F(ProfileFileTest, AccentsAreBytesLikeOthers) {
  WriteFileText("Fiscal.ini", "[S]\r\nK=\xE1\xE9\r\n");
  EXPECT_EQ(Value(), "\xE1\xE9");
}

TEST_F(ProfileFileTest, AMissingFileOrDirectoryIsEmpty) {
  EXPECT_EQ(Value(), "");
  EXPECT_EQ(Value(".\\no\\Fiscal.ini"), "");
}

TEST_F(ProfileFileTest, ADirectoryOfThatNameIsEmpty) {
  ::CreateDirectoryA("Fiscal.ini", nullptr);
  EXPECT_EQ(Value(), "");
}

}  // namespace
}  // namespace kestra
