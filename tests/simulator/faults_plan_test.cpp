// When rules act, how they are counted, and that chance repeats itself.
#include <gtest/gtest.h>

#include "faults.hpp"

namespace impresora {
namespace {

using prueba::Bench;

// Sends ten commands, K and Y in turn, and marks the silent ones.
std::string SilentOnes(Bench& bench, unsigned count = 10) {
  std::string marks;
  for (unsigned i = 0; i < count; ++i) {
    const auto sequence = static_cast<std::uint8_t>(40 + i % 30);
    marks += bench.All(sequence, {i % 2 == 0 ? "K" : "Y"}).empty() ? 'x' : '.';
  }
  return marks;
}

struct WhenCase {
  std::string_view when;
  std::string_view silent;
};

TEST(FaultRules, ActWhenTheySay) {
  const std::vector<WhenCase> cases{
      {"siempre", "xxxxxxxxxx"},
      {"respuesta", "xxxxxxxxxx"},
      {"cada respuesta", "xxxxxxxxxx"},
      {"respuesta 3", "..x......."},
      {"3ra respuesta", "..x......."},
      {"en la tercera respuesta", "..x......."},
      {"cada 3 respuestas", "..x..x..x."},
      {"cada 3ra respuesta", "..x..x..x."},
      {"desde la respuesta 8", ".......xxx"},
      {"desde la 8va respuesta", ".......xxx"},
      {"respuesta de K", "x.x.x.x.x."},
      {"respuesta 2 de Y", "...x......"},
      {"cada 2 respuestas de Y", "...x...x.."},
      {"desde la respuesta 4 de 59", ".......x.x"},
      {"respuesta 4 de K o Y", "...x......"},
      {"respuesta de \"cortar papel\" o '9'", "x.x.x.x.x."},
      {"siempre de Y en reposo", ".x.x.x.x.x"},
      {"siempre en documento", ".........."},
      {"siempre hasta 2 veces", "xx........"},
      {"siempre de Y hasta 1 vez", ".x........"},
      {"siempre con probabilidad 0 %", ".........."},
      {"siempre con probabilidad 100%", "xxxxxxxxxx"},
      {"SIEMPRE DE K", "x.x.x.x.x."},
      {"renglón 1", "x........."},
      {"siempre de *", ".........."},
  };
  for (const WhenCase& c : cases) {
    SCOPED_TRACE(c.when);
    Bench bench(std::string(c.when) + ": callar");
    EXPECT_EQ(bench.wrong, "");
    EXPECT_EQ(SilentOnes(bench), c.silent);
  }
}

struct StageCase {
  std::string_view stage;
  std::string_view silent;
};

TEST(FaultRules, KnowWhatIsOpenWhenTheCommandArrives) {
  const std::vector<StageCase> cases{
      {"reposo", "x...x.."}, {"documento", ".xxx.xx"}, {"tique", ".xxx..."},   {"items", ".xx...."},
      {"pagos", "...x..."},  {"no_fiscal", ".....xx"}, {"factura", "......."}, {"hojas", "......."},
  };
  for (const StageCase& c : cases) {
    SCOPED_TRACE(c.stage);
    Bench bench("siempre en " + std::string(c.stage) + ": callar");
    std::string marks;
    const auto send = [&](std::initializer_list<std::string_view> parts) {
      const auto sequence = static_cast<std::uint8_t>(40 + marks.size());
      marks += bench.All(sequence, parts).empty() ? 'x' : '.';
    };
    send({"@", "C"});
    send({"B", "Pan", "1000", "1000", "2100", "M", "1", "0", "0"});
    send({"D", "Efectivo", "1000", "T"});
    send({"E", "T"});
    send({"H"});
    send({"I", "hola"});
    send({"J", "T"});
    EXPECT_EQ(marks, c.silent);
    EXPECT_EQ(bench.session.GetPrinter().GetStage(), Stage::kIdle);
  }
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

TEST(FaultRules, CountHowOftenTheyWereDueAndActed) {
  Bench bench(
      "cada 2 respuestas: callar\n"
      "siempre de Y: perder byte 200\n"
      "respuesta 3: demorar 1 s\n"
      "siempre con probabilidad 0 %: nak\n"
      "siempre hasta 4 veces: suma mala");
  SilentOnes(bench);
  const auto rules = bench.session.Faults().Rules();
  ASSERT_EQ(rules.size(), 5U);
  EXPECT_EQ(rules[0].id, 1U);
  EXPECT_EQ(rules[0].text, "cada 2 respuestas: callar");
  EXPECT_EQ(bench.session.Faults().Report(),
            "1. cada 2 respuestas: callar -> tocó 5 veces, actuó 5 veces\n"
            "2. siempre de Y: perder byte 200 -> tocó 5 veces, actuó 0 veces\n"
            "3. respuesta 3: demorar 1 s -> tocó 1 vez, actuó 1 vez\n"
            "4. siempre con probabilidad 0 %: nak -> tocó 10 veces, actuó 0 veces\n"
            "5. siempre hasta 4 veces: suma mala -> tocó 7 veces, actuó 4 veces\n");
  EXPECT_TRUE(rules[2].over);
  EXPECT_TRUE(rules[4].over);
  EXPECT_FALSE(rules[0].over);
}

TEST(FaultRules, ComeAndGoWhileThePrinterRuns) {
  Bench bench("siempre: callar");
  FaultPlan& plan = bench.session.Faults();
  EXPECT_EQ(SilentOnes(bench, 2), "xx");
  EXPECT_FALSE(plan.Remove(2));
  EXPECT_TRUE(plan.Remove(1));
  EXPECT_TRUE(plan.Empty());
  EXPECT_EQ(plan.Report(), "");
  EXPECT_EQ(SilentOnes(bench, 2), "..");
  EXPECT_TRUE(plan.Add("respuesta 2: callar\nrespuesta 1: callar").empty());
  EXPECT_EQ(plan.Rules().at(0).id, 2U);
  EXPECT_EQ(SilentOnes(bench, 4), "xx..");
  plan.Clear();
  EXPECT_TRUE(plan.Rules().empty());
}

struct FaultWords : Observer {
  void Exchanged(const Exchange& exchange) override { last = exchange; }
  Exchange last;
};

TEST(FaultRules, AreNamedInTheExchangesThatTheyTouched) {
  Bench bench("comando 1: sin_papel\nrespuesta 1: suma mala, perder byte 99; ruido 41  # dos");
  FaultWords words;
  bench.session.Attach(words);
  bench.Hear(40, {"Y"});
  EXPECT_EQ(words.last.faults, (std::vector<std::string>{"sin_papel", "suma mala", "ruido 41"}));
  bench.Hear(41, {"Y"});
  EXPECT_TRUE(words.last.faults.empty());
}

}  // namespace
}  // namespace impresora
