#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "contract/shared/bench.hpp"
#include "contract/shared/profile_rows.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/fake_profile.hpp"
#include "system.hpp"

namespace kestra {
namespace {

// A file of the current directory that carries the test's name.
class ProfileTest : public ::testing::Test {
 protected:
  ~ProfileTest() override { std::filesystem::remove(name_); }

  void Write(const std::string& text) { std::ofstream(name_, std::ios::binary) << text; }
  std::string Value() { return profile_.Read("Epson_Fiscal", "CPI", ".\\" + name_); }

  std::string name_ =
      std::string("Perfil") + ::testing::UnitTest::GetInstance()->current_test_info()->name();
  SystemProfile profile_;
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
  EXPECT_EQ(profile_.Read("Epson_Fiscal", "CPI", ".\\" + name), "1");
}

TEST_F(ProfileTest, IsReadAnewEachTime) {
  Write(WithValue("1"));
  EXPECT_EQ(Value(), "1");
  Write(WithValue("un valor largo"));
  EXPECT_EQ(Value(), "un valor largo");
}

TEST_F(ProfileTest, AMissingFileOrDirectoryIsEmpty) {
  EXPECT_EQ(Value(), "");
  EXPECT_EQ(profile_.Read("Epson_Fiscal", "CPI", ".\\no\\hay\\Fiscal.ini"), "");
}

TEST_F(ProfileTest, ADirectoryOfThatNameIsEmpty) {
  std::filesystem::create_directory(name_);
  EXPECT_EQ(Value(), "");
}

TEST_F(ProfileTest, NoiseHoldsNoSettings) {
  for (const auto& text : {std::string(4096, '\0'), std::string("\xFF\xFE"),
                           std::string("\xFF\xFE["), std::string(3, '['), std::string("[")}) {
    Write(text);
    EXPECT_EQ(Value(), "");
  }
}

// ---- The system's twin and the fake one, key by key ----

// Settings of one section, written key by key.
class ProfileBench : public Bench {
 public:
  virtual ProfileFile& Get() = 0;
  virtual void Put(const std::string& key, const std::string& value) = 0;
};

class ProfileInAFile : public ProfileBench {
 public:
  ProfileFile& Get() override { return profile_; }
  void Put(const std::string& key, const std::string& value) override {
    text_ += key + "=" + value + "\r\n";
    WriteFile("Fiscal.ini", text_);
  }

 private:
  ScratchDirectory scratch_;
  std::string text_ = "[Epson_Fiscal]\r\n";
  SystemProfile profile_;
};

class ProfileInMemory : public ProfileBench {
 public:
  ProfileFile& Get() override { return profile_; }
  void Put(const std::string& key, const std::string& value) override { profile_.Set(key, value); }

 private:
  Trouble trouble_;
  FakeProfile profile_{trouble_};
};

class ProfileContract : public ::testing::TestWithParam<Twin<ProfileBench>> {
 protected:
  std::string Read(const char* section, const char* key, const char* file = ".\\Fiscal.ini") {
    return bench_->Get().Read(section, key, file);
  }

  std::unique_ptr<ProfileBench> bench_ = GetParam().make();
};

struct ValueRow {
  std::string written;
  std::string read;
};

const std::array<ValueRow, 12> kValues{{{"12", "12"},
                                        {"", ""},
                                        {" \t12 \t", "12"},
                                        {"\"12\"", "12"},
                                        {"'12'", "12"},
                                        {"\"\"12\"\"", "\"12\""},
                                        {"\"12'", "\"12'"},
                                        {"\"", "\""},
                                        {" \"  a b  \" ", "  a b  "},
                                        {"12 ; caracteres", "12 ; caracteres"},
                                        {"a=b", "a=b"},
                                        {std::string(300, 'x'), std::string(254, 'x')}}};

TEST_P(ProfileContract, AValueIsReadByTheSameRules) {
  int number = 0;
  for (const ValueRow& row : kValues) {
    const std::string key = "Clave" + std::to_string(++number);
    bench_->Put(key, row.written);
    EXPECT_EQ(Read("Epson_Fiscal", key.c_str()), row.read) << row.written;
  }
}

TEST_P(ProfileContract, NamesMayBeInAnotherCase) {
  bench_->Put(" cpi ", "12");
  EXPECT_EQ(Read("EPSON_fiscal", "CPI", ".\\FISCAL.INI"), "12");
}

TEST_P(ProfileContract, WhatIsNotThereIsEmpty) {
  bench_->Put("CPI", "12");
  EXPECT_EQ(Read("Otra", "CPI"), "");
  EXPECT_EQ(Read("Epson_Fiscal", "CP"), "");
  EXPECT_EQ(Read("Epson_Fiscal", "CPI", ".\\Otro.ini"), "");
}

INSTANTIATE_TEST_SUITE_P(Twins, ProfileContract,
                         ::testing::Values(TwinOf<ProfileBench, ProfileInAFile>("System"),
                                           TwinOf<ProfileBench, ProfileInMemory>("Fake")),
                         TwinName<ProfileBench>);

}  // namespace
}  // namespace kestra
