#include <gtest/gtest.h>
#include <windows.h>

#include "contract/shared/odd_files.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {
namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

// Two tills in one directory: the other one has the log open for its own line.
TEST_F(OddFiles, ALogThatAnotherHostIsWritingTakesTheLine) {
  const Handle other(::CreateFileA("fiscal.log", FILE_APPEND_DATA, kShared, nullptr, OPEN_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(static_cast<bool>(other));
  EXPECT_EQ(LogFailure(), 0);
  DWORD written = 0;
  EXPECT_NE(::WriteFile(other.Get(), "otra\r\n", 6, &written, nullptr), 0);
  EXPECT_EQ(LogFailure(), 0);
  EXPECT_EQ(ReadFile("fiscal.log"), "una\r\notra\r\nuna\r\n");
}

TEST_F(OddFiles, ALogThatAnotherReadsTakesTheLine) {
  WriteFile("fiscal.log", "vieja\r\n");
  const Handle reader(
      ::CreateFileA("fiscal.log", GENERIC_READ, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(reader));
  EXPECT_EQ(LogFailure(), 0);
  EXPECT_EQ(ReadFile("fiscal.log"), "vieja\r\nuna\r\n");
}

TEST_F(OddFiles, ALogThatAnotherHasForItselfIsAFailure) {
  const Handle other(
      ::CreateFileA("fiscal.log", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  EXPECT_EQ(LogFailure(), 70);
}

TEST_F(OddFiles, SettingsThatAnotherHasForItselfAreNone) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  const Handle other(
      ::CreateFileA("Fiscal.ini", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(other));
  EXPECT_EQ(Setting(), "");
}

TEST_F(OddFiles, SettingsThatAnotherIsWritingAreReadAsTheyAre) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  const Handle other(::CreateFileA("Fiscal.ini", GENERIC_READ | GENERIC_WRITE, kShared, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(other));
  EXPECT_EQ(Setting(), "12");
}

// A directory whose name the system's code page cannot write, and one with blanks and accents.
TEST_F(OddFiles, FollowTheTillIntoADirectoryOfAnyName) {
  for (const auto* const name : {L"Caja n\u00BA 1 del sal\u00F3n", L"\u30EC\u30B8 \u2460"}) {
    ASSERT_NE(::CreateDirectoryW(name, nullptr), 0);
    ASSERT_NE(::SetCurrentDirectoryW(name), 0);
    WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
    EXPECT_EQ(Setting(), "12");
    EXPECT_EQ(LogFailure(), 0);
    EXPECT_EQ(ReadFile("fiscal.log"), "una\r\n");
    ASSERT_NE(::SetCurrentDirectoryW(L".."), 0);
  }
}

}  // namespace
}  // namespace kestra
