#include <gtest/gtest.h>

#include "line_player.hpp"
#include "story_test.hpp"

namespace impresora {
namespace {

using prueba::LinePlayer;
using prueba::ShopPlayer;
using prueba::Story;

PLAY_STORIES(Printer, ShopPlayer, "printer")
PLAY_STORIES(Line, LinePlayer, "line")

// What is told of the story has these words in it, or there is nothing to tell.
void ExpectWrong(prueba::Player&& player, const std::vector<std::string>& lines,
                 const std::string& words) {
  Story story;
  for (const std::string& line : lines) story.lines.emplace_back(1, line);
  const std::string told = player.Play(story);
  EXPECT_TRUE(words.empty() ? told.empty() : told.find(words) != std::string::npos)
      << lines.back() << ":\n"
      << told;
}

TEST(StoryPlayer, TellsWhatIsOtherwise) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
      {{"Y > 0600"}, ""},
      {{"Y > 8600"}, "expected 8600"},
      {{"Y > C080/0600"}, "expected C080/0600"},
      {{"Y > state"}, "expected state"},
      {{"Y > 0600|261121"}, "got 0080/0600|261121|103000"},
      {{"Y > 0600|261121|..."}, ""},
      {{"Y > 0600|261121|103000|..."}, ""},
      {{"Y > 0600|*|103001"}, "expected 0600|*|103001"},
      {{"2 x Y > 0601"}, "expected 0601"},
      {{"? Y > 0600", "? Y > 0601", "? Y > 0600"}, "expected 0601"},
      {{"? K", "  drawer 1", "Y"}, "got 0"},
      {{"K", "|~"}, "~~~~"},
      {{"K", "none"}, "~~~~"},
      {{"K", "has ~~~~~"}, ""},
      {{"K", "has =="}, "expected =="},
      {{"K", "count 1 ~~~~~"}, "expected 1 ~~~~~"},
      {{"ticket", "order TIQUE|SIN VALIDEZ"}, "expected SIN VALIDEZ"},
      {{"ticket", "starts TIQUE"}, "expected TIQUE"},
      {{"sale", "receipts", "none"}, "1 TIQUE B 1"},
      {{"ticket", "item|Pan|1000|1000", "total 1001"}, "expected 000000001001"},
      {{"words 8600"}, "got 0600"},
      {{"set papel mil"}, "that cannot be set"},
      {{"get papel 3"}, "got -1"},
      {{"with nothing 3"}, "cannot be read"},
      {{"nothing"}, "there is no word"},
      {{"fake papel 3"}, "there is no word"},
  };
  for (const auto& [lines, wrong] : cases) ExpectWrong(ShopPlayer(), lines, wrong);
  const std::vector<std::pair<std::vector<std::string>, std::string>> line_cases{
      {{"40 K > [40 K|0080|0600]"}, ""},
      {{"40 K > [40 K|0080|8600]"}, "got [40 K|0080|0600]"},
      {{"40 K > @1 [40 K|0080|0600]"}, "got @0 [40 K|0080|0600]"},
      {{"40 K > -"}, "got [40 K|0080|0600]"},
      {{"damaged 40 K > -"}, "got \\x15"},
      {{"nothing"}, "cannot be read"},
      {{"rule nada"}, "expected a rule"},
      {{"rule siempre: callar", "rules 2"}, "got 1"},
      {{"rule siempre: callar", "report", "|nada"}, "got \n1. siempre: callar"},
      {{"remove 1 => done"}, "got not there"},
      {{"wrong siempre: callar => nada"}, "but rules were added"},
      {{"wrong nada => nada"}, "renglón 1"},
      {{"reads siempre: callar => siempre: nak"}, "got siempre: callar"},
      {{"when siempre => ........."}, "got xxxxxxxxxx"},
      {{"when nunca => ........."}, "renglón 1"},
      {{"spoil callar => [40 K|0080|0600]"}, "got -"},
      {{"spoil demorar 1 s => @0 [40 K|0080|0600]"}, "got @1000"},
      {{"spoil nada => [40 K|0080|0600]"}, "renglón 1"},
      {{"rule siempre: desenchufar", "40 K > -", "ends well"}, "got unplugged"},
      {{"40 K", "trace", "none"}, "Cortar papel"},
      {{"40 K", "tear", "none"}, ""},
  };
  for (const auto& [lines, wrong] : line_cases) ExpectWrong(LinePlayer(), lines, wrong);
}

}  // namespace
}  // namespace impresora
