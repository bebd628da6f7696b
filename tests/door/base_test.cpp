#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "base/json.hpp"
#include "base/moment.hpp"
#include "base/sha256.hpp"

namespace puerta {
namespace {

TEST(Sha256, IsWhatEverybodyElseGets) {
  EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(Sha256(std::string(1000000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Moment, IsATextThatSortsAsTime) {
  EXPECT_EQ(MomentText(std::chrono::sys_time<std::chrono::milliseconds>(
                std::chrono::milliseconds(1795372200125))),
            "2026-11-22T18:30:00.125Z");
}

TEST(Json, WhatIsNestedWithoutEndIsNotRead) {
  EXPECT_TRUE(ParseJson(std::string(32, '[') + std::string(32, ']')));
  EXPECT_FALSE(ParseJson(std::string(33, '[') + std::string(33, ']')));
  EXPECT_TRUE(ParseJson("\"" + std::string(100, '[') + "\\\"" + std::string(100, '{') + "\""));
  EXPECT_FALSE(ParseJson("{"));
  EXPECT_FALSE(ParseJson(""));
}

}  // namespace
}  // namespace puerta
