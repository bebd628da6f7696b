#include "platform/shared/ports.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kestra {
namespace {

TEST(LineSpeed, EverySpeedOfTheTableIsRead) {
  for (const std::int32_t speed : kLineSpeeds) {
    EXPECT_EQ(LineSpeedOf(std::to_string(speed) + ",N,8,1"), speed);
  }
}

TEST(LineSpeed, WhatIsNoSettingHasNoSpeed) {
  for (const char* const settings :
       {"", "9600", ",N,8,1", "9600,E,7,1", "9600,N,8,1,", " 9600,N,8,1", "+9600,N,8,1",
        "9600.0,N,8,1", "1,N,8,1", "4000001,N,8,1", "99999999999,N,8,1", "abc,N,8,1"}) {
    EXPECT_EQ(LineSpeedOf(settings), std::nullopt) << settings;
  }
}

}  // namespace
}  // namespace kestra
