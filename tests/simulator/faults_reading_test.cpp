// What is a rule and what is not.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "faults.hpp"
#include "faults/actions.hpp"

namespace impresora {
namespace {

using prueba::Bench;

constexpr std::string_view kWhen =
    "cuándo: «siempre», «respuesta 3 de B», «cada 2 comandos», «desde el renglón 40»…";

TEST(FaultMistakes, SayTheLineWhatItReadsAndWhatWasExpected) {
  const std::string when(kWhen);
  const std::vector<std::pair<std::string, std::string>> cases{
      {"nunca: callar", "renglón 1: dice «nunca», se esperaba " + when},
      {"\n# nada\n  nunca", "renglón 3: dice «nunca», se esperaba " + when},
      {":", "renglón 1: dice «:», se esperaba " + when},
      {"siempre callar",
       "renglón 1: dice «callar», se esperaba «de», «en», «con», «hasta» o dos puntos"},
      {"siempre",
       "renglón 1: dice el fin del renglón, se esperaba «de», «en», «con», «hasta» o dos puntos"},
      {"siempre:", "renglón 1: dice el fin del renglón, se esperaba una acción"},
      {"siempre: callar,", "renglón 1: dice el fin del renglón, se esperaba una acción"},
      {"siempre: gritar", "renglón 1: dice «gritar», se esperaba una acción"},
      {"siempre: callar ya", "renglón 1: dice «ya», se esperaba callar"},
      {"siempre: callar: nak", "renglón 1: dice «:», se esperaba callar"},
      {"respuesta 0: callar", "renglón 1: dice «0», se esperaba un número desde 1"},
      {"desde la respuesta: callar", "renglón 1: dice «:», se esperaba un número desde 1"},
      {"siempre de XYZ: callar",
       "renglón 1: dice «XYZ», se esperaba un comando: su carácter, dos dígitos hexadecimales o su "
       "nombre entre comillas"},
      {"siempre de \"Bailar\": callar",
       "renglón 1: dice «\"Bailar\"», se esperaba un comando: su carácter, dos dígitos "
       "hexadecimales o su nombre entre comillas"},
      // Half a character of another encoding would not be the same when the rule is shown.
      {"siempre de \xFE: callar",
       "renglón 1: dice «\uFFFD», se esperaba un comando: su carácter, dos dígitos hexadecimales o "
       "su nombre entre comillas"},
      {"siempre de \"Abrir tique: callar",
       "renglón 1: dice «\"Abrir tique: callar», se esperaba el cierre de las comillas"},
      {"siempre en casa: callar",
       "renglón 1: dice «casa», se esperaba reposo, documento, tique, factura, items, pagos, hojas "
       "o no_fiscal"},
      {"siempre con probabilidad 101 %: callar",
       "renglón 1: dice «101», se esperaba un porcentaje de 0 a 100"},
      {"siempre con probabilidad 10: callar", "renglón 1: dice «:», se esperaba «%»"},
      {"siempre hasta 0 veces: callar", "renglón 1: dice «0», se esperaba un número desde 1"},
      {"siempre: perder byte 0",
       "renglón 1: dice «0», se esperaba el número de un byte: desde 1, desde -1 hacia atrás, o "
       "«al "
       "azar»"},
      {"comando 1: perder byte 3",
       "renglón 1: dice «perder», se esperaba una acción que valga para comandos"},
      {"siempre: perder",
       "renglón 1: dice «perder», se esperaba una acción que valga para respuestas"},
      {"comando: encender fiscal 0004",
       "renglón 1: dice el fin del renglón, se esperaba «desde ahora»"},
      {"siempre: encender fiscal 04",
       "renglón 1: dice «04», se esperaba cuatro dígitos "
       "hexadecimales"},
      {"siempre: demorar 3",
       "renglón 1: dice «3», se esperaba un tiempo de hasta un día: «50 ms», «1.5 s», «2 min»"},
      {"siempre: demorar 90000 s",
       "renglón 1: dice «90000», se esperaba un tiempo de hasta un día: «50 ms», «1.5 s», «2 min»"},
      {"siempre: cambiar byte 1 por 123",
       "renglón 1: dice «123», se esperaba un byte en dos dígitos hexadecimales"},
      {"siempre: papel = mucho", "renglón 1: dice «mucho», se esperaba un valor para papel"},
      {"siempre: papel", "renglón 1: dice el fin del renglón, se esperaba «=»"},
      {"siempre: partir en 1 con 1 s",
       "renglón 1: dice «1», se esperaba «byte» o un número de partes desde 2"},
  };
  for (const auto& [text, words] : cases) {
    SCOPED_TRACE(text);
    FaultPlan plan;
    const auto mistakes = plan.Add(text);
    ASSERT_EQ(mistakes.size(), 1U);
    EXPECT_EQ(mistakes[0].Words(), words);
    EXPECT_TRUE(plan.Empty());
  }
}

TEST(FaultMistakes, AllAreToldAndNoneOfTheRulesIsAdded) {
  FaultPlan plan;
  const auto mistakes = plan.Add("siempre: callar\nhola\nsiempre: nak\nsiempre: chau\n");
  ASSERT_EQ(mistakes.size(), 2U);
  EXPECT_EQ(mistakes[0].line, 2U);
  EXPECT_EQ(mistakes[1].line, 4U);
  EXPECT_TRUE(plan.Empty());
}

TEST(FaultReading, TakesFilesFromAnyEditor) {
  FaultPlan plan;
  EXPECT_TRUE(plan.Add("\xEF\xBB\xBFsiempre:\tcallar  # nota\r\n\r\n# nada\r\nen la 2da respuesta "
                       "de '#':nak")
                  .empty());
  const auto rules = plan.Rules();
  ASSERT_EQ(rules.size(), 2U);
  EXPECT_EQ(rules[0].text, "siempre: callar");
  EXPECT_EQ(rules[1].text, "en la 2da respuesta de '#':nak");
}

TEST(FaultReading, WhatItShowsIsTheSameRuleWhateverTheBlanks) {
  FaultPlan plan;
  ASSERT_TRUE(plan.Add("siempre\rcon\tprobabilidad 50 %: callar").empty());
  EXPECT_EQ(plan.Rules().at(0).text, "siempre con probabilidad 50 %: callar");
}

TEST(FaultReading, WhatItShowsIsAlwaysFitForAPage) {
  FaultPlan plan;
  EXPECT_TRUE(plan.Add("siempre: ruido '\xFF\x01'").empty());
  EXPECT_EQ(plan.Rules().at(0).text, "siempre: ruido '\xEF\xBF\xBD\xEF\xBF\xBD'");
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
  const std::vector<std::string> words{"siempre",
                                       "respuesta",
                                       "comando",
                                       "renglón",
                                       "cada",
                                       "desde",
                                       "de",
                                       "en",
                                       "con",
                                       "hasta",
                                       "3",
                                       "-1",
                                       "0",
                                       "3ra",
                                       ":",
                                       ",",
                                       ";",
                                       "=",
                                       "%",
                                       "byte",
                                       "campo",
                                       "K",
                                       "fiscal",
                                       "impresora",
                                       "0004",
                                       "\"",
                                       "'",
                                       "\\0",
                                       "#",
                                       "50ms",
                                       "1.5",
                                       "s",
                                       "al",
                                       "azar",
                                       "por",
                                       "tras",
                                       "antes",
                                       "ahora",
                                       "partes",
                                       "bytes",
                                       "papel",
                                       "sin_papel",
                                       "99999999999999999999",
                                       "\xC3",
                                       "\xFF",
                                       "\n",
                                       "veces",
                                       "la",
                                       "o",
                                       "probabilidad",
                                       "\t",
                                       "ms",
                                       "+",
                                       "min"};
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

TEST(FaultReading, AWordNamesTheCommandsOfEveryFamily) {
  struct Row {
    std::string_view word;
    std::uint8_t ticket, invoice;
  };
  const auto arrives = [](FaultPlan& plan, std::uint8_t command) {
    Packet packet;
    packet.command = command;
    Printer printer{Settings{}};
    return plan.Arriving(packet, printer).heard;
  };
  for (const Row& row : {Row{"ítem", 'B', 'b'}, Row{"item", 'B', 'b'}, Row{"cierre", 'E', 'e'},
                         Row{"pago o subtotal", 'D', 'c'}, Row{"apertura", '@', '`'},
                         Row{"Percepción o jornada", '9', 'f'}}) {
    FaultPlan plan;
    ASSERT_TRUE(plan.Add("comando de " + std::string(row.word) + ": perder").empty()) << row.word;
    EXPECT_FALSE(arrives(plan, row.ticket)) << row.word;
    EXPECT_FALSE(arrives(plan, row.invoice)) << row.word;
    EXPECT_TRUE(arrives(plan, '{')) << row.word;
  }
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
