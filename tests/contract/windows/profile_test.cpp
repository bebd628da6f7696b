#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "contract/shared/odd_files.hpp"
#include "contract/shared/profile_rows.hpp"

namespace kestra {

namespace {

class WindowsProfileTest : public OddFiles {};

TEST_F(WindowsProfileTest, FollowsTheCurrentDirectoryWithABareNameToo) {
  WriteFile("Fiscal.ini", "[S]\r\nK=12\r\n");
  ::CreateDirectoryA("otra", nullptr);
  WriteFile("otra\\Fiscal.ini", "[S]\r\nK=13\r\n");
  EXPECT_EQ(Setting(), "12");
  EXPECT_EQ(Setting("Fiscal.ini"), "12");
  ::SetCurrentDirectoryA("otra");
  EXPECT_EQ(Setting(), "13");
}

TEST_F(WindowsProfileTest, MayBeKeptInUnitsOf16Bits) {
  const std::wstring text = L"\uFEFF[S]\r\nK=t\u00E9cnico \u20AC\r\n";
  WriteFile("Fiscal.ini", {reinterpret_cast<const char*>(text.data()), text.size() * 2});
  EXPECT_EQ(Setting(), "t\xE9\x63nico \x80");
  for (const char* broken : {"\xFF\xFE", "\xFF\xFE[", "\xFF"}) {
    WriteFile("Fiscal.ini", broken);
    EXPECT_EQ(Setting(), "");
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
