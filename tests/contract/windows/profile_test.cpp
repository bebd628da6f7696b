#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string_view>

#include "contract/shared/profile_rows.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/windows/files.hpp"

namespace kestra {

namespace {

class WindowsProfileTest : public ::testing::Test {
 protected:
  std::string Value(const std::string& file = ".\\Fiscal.ini") {
    return profile_.Read("S", "K", file);
  }

  ScratchDirectory scratch_;
  WindowsProfile profile_;
};

TEST_F(WindowsProfileTest, ABareNameMeansTheCurrentDirectoryToo) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value("Fiscal.ini"), "12");
}

TEST_F(WindowsProfileTest, FollowsTheCurrentDirectory) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  ::CreateDirectoryA("otra", nullptr);
  WriteFile("otra\\Fiscal.ini", "[S]\r\nK=13\r\n");
  EXPECT_EQ(Value(), "12");
  ::SetCurrentDirectoryA("otra");
  EXPECT_EQ(Value(), "13");
}

TEST_F(WindowsProfileTest, IsFoundInADirectoryThatTheCodePageCannotWrite) {
  ::CreateDirectoryW(L"\u6F22\u5B57", nullptr);
  ASSERT_TRUE(::SetCurrentDirectoryW(L"\u6F22\u5B57"));
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  EXPECT_EQ(Value(), "12");
}

TEST_F(WindowsProfileTest, MayBeOpenInAnEditorMeanwhile) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  const HANDLE editor =
      ::CreateFileA("Fiscal.ini", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(Value(), "12");
  ::CloseHandle(editor);
}

TEST_F(WindowsProfileTest, MayBeKeptInUnitsOf16Bits) {
  const std::wstring text = L"\uFEFF[S]\r\nK=t\u00E9cnico \u20AC\r\n";
  WriteFile("Fiscal.ini", {reinterpret_cast<const char*>(text.data()), text.size() * 2});
  EXPECT_EQ(Value(), "t\xE9\x63nico \x80");
  for (const char* broken : {"\xFF\xFE", "\xFF\xFE[", "\xFF"}) {
    WriteFile("Fiscal.ini", broken);
    EXPECT_EQ(Value(), "");
  }
}

// Settings that were written for the system's own reader keep their meaning.
TEST_F(WindowsProfileTest, IsReadAsTheSystemsOwnReaderReadsIt) {
  for (const ProfileRow& row : kProfileRows) {
    WriteFile("Fiscal.ini", row.text);
    std::array<char, 256> value{};
    ::GetPrivateProfileStringA("Epson_Fiscal", "CPI", "", value.data(),
                               static_cast<DWORD>(value.size()), ".\\Fiscal.ini");
    EXPECT_STREQ(value.data(), row.value) << row.why;
  }
}

}  // namespace
}  // namespace kestra
