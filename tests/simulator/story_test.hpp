#pragma once

#include <gtest/gtest.h>

#include "story.hpp"

// A case for each story of the folder, under its title.
#define PLAY_STORIES(SUITE, PLAYER, FOLDER)                                                \
  class SUITE : public testing::TestWithParam<prueba::Story> {};                           \
  TEST_P(SUITE, Story) {                                                                   \
    const std::string wrong = PLAYER().Play(GetParam());                                   \
    EXPECT_TRUE(wrong.empty()) << GetParam().file << ".txt, line " << wrong;               \
  }                                                                                        \
  INSTANTIATE_TEST_SUITE_P(Stories, SUITE, testing::ValuesIn(prueba::ReadStories(FOLDER)), \
                           [](const auto& told) { return told.param.Name(); });
