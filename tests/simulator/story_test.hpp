#pragma once

#include <gtest/gtest.h>

#include <string>

#include "story.hpp"

namespace impresora::prueba {

template <class Player>
void PlayStory(const Story& story) {
  const std::string wrong = Player().Play(story);
  EXPECT_TRUE(wrong.empty()) << story.file << ".txt, line " << wrong;
}

}  // namespace impresora::prueba

// A case for each story of the folder, under its title.
// NOLINTNEXTLINE(bugprone-macro-parentheses): names of classes
#define PLAY_STORIES(SUITE, PLAYER, FOLDER)                                                \
  class SUITE : public testing::TestWithParam<prueba::Story> {};                           \
  TEST_P(SUITE, Story) {                                                                   \
    prueba::PlayStory<PLAYER>(GetParam());                                                 \
  }                                                                                        \
  INSTANTIATE_TEST_SUITE_P(Stories, SUITE, testing::ValuesIn(prueba::ReadStories(FOLDER)), \
                           [](const auto& told) { return told.param.Name(); });
