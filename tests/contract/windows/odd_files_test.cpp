#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "contract/shared/failure_number.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {
namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

class OddFiles : public ::testing::Test {
 protected:
  std::int32_t LogFailure() {
    return FailureNumber([&] { log_.Append(".\\fiscal.log", "una\r\n"); });
  }
  std::string Setting() { return profile_.Read("S", "K", ".\\Fiscal.ini"); }

  ScratchDirectory scratch_;
  WindowsLog log_;
  WindowsProfile profile_;
};

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

TEST_F(OddFiles, SettingsThatAnotherHasForItselfAreNone) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  const Handle other(
      ::CreateFileA("Fiscal.ini", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(static_cast<bool>(other));
  EXPECT_EQ(Setting(), "");
}

TEST_F(OddFiles, SettingsThatAnotherIsWritingAreReadAsTheyAre) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  const Handle other(
      ::CreateFileA("Fiscal.ini", GENERIC_WRITE, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
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
