// The library's journal as it is read beside it, and the status words.
#include "worker/journal.hpp"

#include <gtest/gtest.h>

#include "worker/states.hpp"

namespace puerta {
namespace {

// As a library wrote it.
const std::string kBeginning =
    "inicio\t14\t2026-11-22 22:15:51\timpresora=tcp:127.0.0.1:41837\tabierto=no\t"
    "contadores=1,1,0,0,0,0,0,0,0,0,0\tjornada=no\t5dffb463\n";
const std::string kIntent =
    "intento\t15\t2026-11-22 "
    "22:15:51\tllamada=EP_CambiarFechaHora(261122,235800)\tcomando=X<1c>261122<1c>235800\t"
    "libro=si\tabierto=no\tcontadores=1,1,0,0,0,0,0,0,0,0,0\tjornada=no\te16fce2c\n";
const std::string kResult =
    "resultado\t15\t2026-11-22 "
    "22:15:51\tdesenlace=1\tcausa=0\trespuesta=0080\trespuesta=0600\tabierto=no\t"
    "contadores=1,1,0,0,0,0,0,0,0,0,0\tjornada=no\tff81bc19\n";

Evidence Read(const std::string& text, std::int64_t since) {
  return ReadEvidence(std::vector{text}, since);
}

TEST(Journals, TellWhatWasSentAndWhatBecameOfIt) {
  const auto evidence = Read(kBeginning + kIntent + kResult, 14);
  EXPECT_TRUE(evidence.whole);
  ASSERT_EQ(evidence.sent.size(), 1U);
  EXPECT_EQ(evidence.sent[0].command,
            "X\x1C"
            "261122\x1C"
            "235800");
  EXPECT_TRUE(evidence.sent[0].IsDone());
  EXPECT_EQ(evidence.sent[0].answer, (std::vector<std::string>{"0080", "0600"}));
  EXPECT_EQ(NewestNumber(kBeginning + kIntent + kResult), 15);
}

TEST(Journals, LeaveOpenWhatHasNoResult) {
  const auto evidence = Read(kBeginning + kIntent + kResult.substr(0, 60), 14);
  ASSERT_EQ(evidence.sent.size(), 1U);
  EXPECT_FALSE(evidence.sent[0].IsDone());
  EXPECT_TRUE(evidence.sent[0].MayBeDone());
}

TEST(Journals, SayNothingOfWhatWasBefore) {
  const auto evidence = Read(kBeginning + kIntent + kResult, 15);
  EXPECT_TRUE(evidence.whole);
  EXPECT_TRUE(evidence.sent.empty());
}

TEST(Journals, OfWhichSomethingIsMissingAreNotWhole) {
  EXPECT_FALSE(Read(kBeginning + kIntent, 9).whole) << "a day was closed since, in another file";
  EXPECT_FALSE(Read("", 0).whole);
  EXPECT_FALSE(Read("no es un diario\n", 0).whole);
  auto spoiled = kIntent;
  spoiled[30] = '7';
  EXPECT_TRUE(Read(kBeginning + spoiled, 14).sent.empty());
  EXPECT_EQ(NewestNumber("no es un diario\n"), -1);
  EXPECT_FALSE(EvidenceOf("", 3).whole);
  EXPECT_FALSE(EvidenceOf("no-hay-tal-diario.txt", 3).whole);
  EXPECT_EQ(NewestNumberOf("no-hay-tal-diario.txt"), -1);
}

TEST(States, AreToldWithTheirCauses) {
  const auto good = StateJson({.answers = true, .printer = "0080", .fiscal = "1600"});
  EXPECT_EQ(good["papel"], "hay");
  EXPECT_EQ(good["documento_abierto"], true);
  EXPECT_EQ(good["condiciones"], Json::array());
  EXPECT_EQ(good["causa"], 0);
  const auto empty = StateJson({.answers = true, .printer = "C004", .fiscal = "8E04"});
  EXPECT_EQ(empty["papel"], "falta");
  EXPECT_EQ(empty["causa"], 414);
  std::vector<int> causes;
  for (const auto& one : empty["condiciones"]) causes.push_back(one["causa"]);
  EXPECT_EQ(causes, (std::vector{414, 402, 511, 502}));
}

TEST(States, OfAPrinterThatDoesNotAnswerHaveNoWords) {
  const auto silent = StateJson({.cause = 301, .text = "La impresora no contestó."});
  EXPECT_EQ(silent["contesta"], false);
  EXPECT_EQ(silent["causa"], 301);
  EXPECT_FALSE(silent.contains("palabras"));
}

TEST(States, ADocumentThatIsOpenIsNoNews) {
  EXPECT_EQ(NewsOf(StateJson({.answers = true, .printer = "0080", .fiscal = "0600"})),
            NewsOf(StateJson({.answers = true, .printer = "0080", .fiscal = "1600"})));
}

}  // namespace
}  // namespace puerta
