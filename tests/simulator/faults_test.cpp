// The rules that spoil the line: what the stories cannot tell of them, because it is chance, or long.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "faults.hpp"
#include "faults/actions.hpp"
#include "story.hpp"

namespace impresora {
namespace {

using prueba::Bench;
using prueba::Body;
using prueba::Split;

// Sends ten commands, K and Y in turn, and marks the silent ones.
std::string SilentOnes(Bench& bench, unsigned count = 10) {
  std::string marks;
  for (unsigned i = 0; i < count; ++i) {
    const auto sequence = static_cast<std::uint8_t>(40 + i % 30);
    marks += bench.All(sequence, {i % 2 == 0 ? "K" : "Y"}).empty() ? 'x' : '.';
  }
  return marks;
}

TEST(FaultRules, ChanceIsTheSameForTheSameSeed) {
  const std::string rules = "siempre con probabilidad 40 %: callar\nsiempre: ruido 3 bytes";
  const auto run = [&rules](std::uint64_t seed) {
    prueba::StoppedClock clock;
    Session session({}, clock, {.seed = seed});
    session.Faults().Add(rules);
    std::string all;
    Micros now{};
    for (unsigned i = 0; i < 60; ++i) {
      const auto sequence = static_cast<std::uint8_t>(32 + i % 40);
      all += prueba::Ask(session, Frame(sequence, "K"), now) + "\n";
    }
    return all;
  };
  EXPECT_EQ(run(7), run(7));
  EXPECT_NE(run(7), run(8));
}

TEST(FaultRules, ChanceIsTheSameOnEveryPlatform) {
  Bench bench("siempre con probabilidad 25 %: callar");
  EXPECT_EQ(SilentOnes(bench, 40), "...x..xx.......xxx....xx.....xx.x.......");
}

TEST(FaultRules, ARuleDrawsTheSameWhateverOthersDo) {
  const std::string rule = "siempre con probabilidad 40 %: callar\n";
  Bench alone(rule);
  Bench crowded(rule + "siempre con probabilidad 40 %: suma mala, invertir byte al azar");
  EXPECT_EQ(SilentOnes(alone, 40), SilentOnes(crowded, 40));
}

TEST(FaultsOfAnswers, NoiseByChanceHasNoByteThatSteersTheLine) {
  Bench bench("siempre: ruido 200 bytes");
  const std::string all = bench.All(40, {"K"});
  ASSERT_EQ(all.size(), 218U);
  EXPECT_EQ(all.substr(200), Frame(40, Body({"K", "0080", "0600"})));
  for (const char c : all.substr(0, 200)) EXPECT_LT(c, 0);
}

TEST(FaultsOfAnswers, ASlowLineLosesNothingOfWhatComesBeforeThePlugIsPulled) {
  prueba::StoppedClock clock;
  Session session({}, clock, {.baud = 9600});
  session.Faults().Add("siempre: desenchufar en byte 4");
  Micros now{};
  session.Receive(Frame(40, "K"), now);
  std::string heard;
  Output output;
  while (!output.hang_up) {
    ASSERT_TRUE(session.NextDue());
    now = std::max(now, *session.NextDue());
    output = session.Advance(now);
    heard += output.bytes;
  }
  EXPECT_EQ(heard, "\x02(K");
  EXPECT_EQ(now, Micros(11 * 1041));
}

TEST(FaultReading, OfALongMistakeABeginningIsTold) {
  FaultPlan plan;
  const auto mistakes = plan.Add(std::string(100'000, '\xFF'));
  ASSERT_EQ(mistakes.size(), 1U);
  EXPECT_LT(mistakes[0].Words().size(), 400U);
}

// The page's own rules, and a row for every action.
TEST(FaultPage, IsTrue) {
  std::ifstream page(IMPRESORA_FALLAS);
  std::string line;
  std::string all;
  unsigned rules = 0;
  while (std::getline(page, line)) {
    all += line + "\n";
    if (line.substr(0, 4) != "    ") continue;
    FaultPlan plan;
    EXPECT_TRUE(plan.Add(line).empty()) << line;
    rules += plan.Empty() ? 0U : 1U;
  }
  EXPECT_GE(rules, 15U);
  for (const ActionRow& row : Actions()) {
    if (row.name == "minusculas") continue;  // written with its accent
    EXPECT_NE(all.find("`" + std::string(row.name)), std::string::npos) << row.name;
  }
}

// Words of the language and a little of everything else, in any order.
TEST(FaultReading, SurvivesAnyText) {
  const std::vector<std::string> words = Split(
      "siempre respuesta comando renglón cada desde de en con hasta 3 -1 0 3ra : , ; = % byte "
      "campo K "
      "fiscal impresora 0004 \" ' \\0 # 50ms 1.5 s al azar por tras antes ahora partes bytes papel "
      "sin_papel 99999999999999999999 \xC3 \xFF \n veces la o probabilidad \t ms + min",
      ' ');
  std::mt19937_64 chance(2026);
  unsigned accepted = 0;
  for (unsigned run = 0; run < 15'000; ++run) {
    std::string text;
    if (chance() % 2 == 0) text = "siempre: ";
    for (auto left = chance() % 12; left > 0; --left) {
      const auto actions = Actions();
      const auto pick = chance() % (words.size() + actions.size());
      text += pick < words.size() ? words[pick] : std::string(actions[pick - words.size()].name);
      if (chance() % 8 != 0) text += ' ';
    }
    Bench bench(text);
    if (bench.session.Faults().Empty()) continue;
    ++accepted;
    bench.Hear(40, {"Y"});
    bench.Hear(41, {"K"});
  }
  EXPECT_GT(accepted, 50U);
}

TEST(FaultReading, SurvivesAnyBytes) {
  std::mt19937_64 chance(11);
  for (unsigned run = 0; run < 2'000; ++run) {
    std::string text;
    for (auto left = chance() % 60; left > 0; --left) text += static_cast<char>(chance() & 0xFFU);
    FaultPlan plan;
    const auto mistakes = plan.Add(text);
    for (const FaultMistake& mistake : mistakes) EXPECT_FALSE(mistake.Words().empty());
    EXPECT_TRUE(mistakes.empty() || plan.Empty());
  }
}

}  // namespace
}  // namespace impresora
