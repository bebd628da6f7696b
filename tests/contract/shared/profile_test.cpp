#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "contract/shared/profile_rows.hpp"

namespace kestra {
namespace {

// A file of the current directory that carries the test's name.
class ProfileTest : public ::testing::Test {
 protected:
  ~ProfileTest() override { std::filesystem::remove(name_); }

  void Write(const std::string& text) { std::ofstream(name_, std::ios::binary) << text; }
  std::string Value() { return profile_->Read("Epson_Fiscal", "CPI", ".\\" + name_); }

  std::string name_ =
      std::string("Perfil") + ::testing::UnitTest::GetInstance()->current_test_info()->name();
  std::unique_ptr<ProfileFile> profile_ = MakeProfile();
};

std::string WithValue(const std::string& value) {
  return "[Epson_Fiscal]\nCPI=" + value + "\n";
}

TEST_F(ProfileTest, IsReadByTheSameRulesEverywhere) {
  for (const ProfileRow& row : kProfileRows) {
    Write(row.text);
    EXPECT_EQ(Value(), row.value) << row.why;
  }
}

TEST_F(ProfileTest, EveryByteOfAValueStaysAsItIs) {
  for (int code = 0x80; code <= 0xFF; ++code) {
    const std::string byte(1, static_cast<char>(code));
    Write(WithValue(byte));
    EXPECT_EQ(Value(), byte) << code;
    Write(WithValue("a" + byte + "ctico"));
    EXPECT_EQ(Value(), "a" + byte + "ctico") << code;
  }
}

TEST_F(ProfileTest, AValueHasAtMost254Characters) {
  Write(WithValue(std::string(300, 'x')));
  EXPECT_EQ(Value(), std::string(254, 'x'));
}

TEST_F(ProfileTest, IsFoundInAnotherCase) {
  const std::string name = name_;
  name_ = "PERFIL" + name_.substr(6);
  Write(WithValue("1"));
  EXPECT_EQ(profile_->Read("Epson_Fiscal", "CPI", ".\\" + name), "1");
}

TEST_F(ProfileTest, IsReadAnewEachTime) {
  Write(WithValue("1"));
  EXPECT_EQ(Value(), "1");
  Write(WithValue("un valor largo"));
  EXPECT_EQ(Value(), "un valor largo");
}

TEST_F(ProfileTest, AMissingFileOrDirectoryIsEmpty) {
  EXPECT_EQ(Value(), "");
  EXPECT_EQ(profile_->Read("Epson_Fiscal", "CPI", ".\\no\\hay\\Fiscal.ini"), "");
}

TEST_F(ProfileTest, ADirectoryOfThatNameIsEmpty) {
  std::filesystem::create_directory(name_);
  EXPECT_EQ(Value(), "");
}

}  // namespace
}  // namespace kestra
