// A printer's queue: what is said to its worker, and what a till is told, whoever dies.
#include <gtest/gtest.h>

#include <algorithm>

#include "door/service/world.hpp"

namespace puerta {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr auto kReady = R"({"listo":{"modelo":"TM-T900","familia":"TQ"}})";

std::string Before(int job) {
  return R"({"antes":{"trabajo":)" + std::to_string(job) + R"(,"numero":"00000011"}})";
}

std::string End(int job, const std::string& state, const std::string& more = "") {
  return R"({"fin":{"trabajo":)" + std::to_string(job) + R"(,"estado":")" + state +
         R"(","desenlace":1,"causa":0,"texto":"")" + more + "}}";
}

TEST(Printer, PrintsInTheOrderInWhichItWasAsked) {
  ShopOfOne shop;
  shop.Wants("clave-1");
  shop.Wants("clave-2");
  EXPECT_TRUE(shop.workers.sent.empty());
  shop.Says(kReady);
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":1})");
  EXPECT_EQ(shop.StateOf(1), "en_cola");
  shop.Says(Before(1));
  EXPECT_EQ(shop.LastSent(), R"({"siga":1})");
  EXPECT_EQ(shop.StateOf(1), "imprimiendo");
  shop.Says(End(1, "hecho"));
  EXPECT_EQ(shop.StateOf(1), "hecho");
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":2})");
}

TEST(Printer, TheSameKeyIsOneJob) {
  ShopOfOne shop;
  shop.Says(kReady);
  EXPECT_FALSE(shop.Wants("clave-1").repeated);
  EXPECT_TRUE(shop.Wants("clave-1").repeated);
  EXPECT_EQ(shop.Wants("clave-1", R"({"cajon":2})").refused->status, 422);
  EXPECT_EQ(shop.workers.sent.size(), 1U);
}

TEST(Printer, WhatIsInvalidDoesNotSpendItsKey) {
  ShopOfOne shop;
  const auto refused = shop.Wants("clave-1", R"({"cajon":7})");
  ASSERT_TRUE(refused.refused);
  EXPECT_EQ(refused.refused->status, 422);
  EXPECT_EQ(refused.refused->errors.at(0).pointer, "/cajon");
  EXPECT_TRUE(shop.Wants("clave-1").job);
}

TEST(Printer, AFullQueueRefusesTheNewAndAnswersTheKnown) {
  ShopOfOne shop;
  for (const auto* key : {"clave-1", "clave-2", "clave-3"}) EXPECT_TRUE(shop.Wants(key).job);
  EXPECT_EQ(shop.Wants("clave-4").refused->status, 429);
  EXPECT_TRUE(shop.Wants("clave-2").repeated);
}

TEST(Printer, IsTakenBackUntilTheWorkerHasIt) {
  ShopOfOne shop;
  shop.Wants("clave-1");
  shop.Wants("clave-2");
  shop.Says(kReady);
  EXPECT_EQ(shop.service->Cancel(1).refused->status, 409);
  EXPECT_FALSE(shop.service->Cancel(2).refused);
  EXPECT_EQ(shop.StateOf(2), "cancelado");
  EXPECT_FALSE(shop.service->Cancel(2).refused) << "twice is once";
  EXPECT_EQ(shop.service->Cancel(9).refused->status, 404);
}

TEST(Printer, AfterTheWorkersDeathTheFirstThingIsToAskWhatBecameOfIt) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Wants("clave-2");
  shop.Says(Before(1));
  shop.service->OnGone("caja1", "señal 9");
  EXPECT_EQ(shop.StateOf(1), "imprimiendo");
  shop.timers.Pass(seconds(1));
  EXPECT_EQ(shop.workers.starts["caja1"], 2);
  shop.Says(kReady);
  EXPECT_EQ(
      shop.LastSent(),
      R"({"recupere":{"antes":{"numero":"00000011","trabajo":1},"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":1}})");
  shop.Says(
      R"({"recuperado":{"trabajo":1,"estado":"no_hecho","desenlace":6,"causa":0,"texto":"No se hizo."}})");
  EXPECT_EQ(shop.StateOf(1), "no_hecho");
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":2})");
}

TEST(Printer, AfterTheDoorsOwnDeathLikewise) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Says(Before(1));
  shop.Open();
  shop.Says(kReady);
  EXPECT_TRUE(shop.LastSent().starts_with(R"({"recupere":)"));
  shop.Says(R"({"recuperado":{"trabajo":1,"estado":"hecho","desenlace":1,"causa":0,"texto":""}})");
  EXPECT_EQ(shop.StateOf(1), "hecho");
  EXPECT_TRUE(shop.Wants("clave-1").repeated);
}

TEST(Printer, WhileNobodyKnowsNothingElseIsPrintedAndItGoesOnAsking) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Says(Before(1));
  shop.Says(
      R"({"fin":{"trabajo":1,"estado":"no_se_sabe","desenlace":4,"causa":301,"texto":"?","definitivo":false}})");
  EXPECT_EQ(shop.StateOf(1), "no_se_sabe");
  EXPECT_TRUE(shop.LastSent().starts_with(R"({"recupere":)"));
  shop.Wants("clave-2");
  shop.Says(
      R"({"recuperado":{"trabajo":1,"estado":"no_se_sabe","desenlace":4,"causa":301,"texto":"?","definitivo":false}})");
  const auto asked = shop.workers.sent.size();
  shop.timers.Pass(milliseconds(100));
  EXPECT_EQ(shop.workers.sent.size(), asked) << "not in a circle";
  shop.timers.Pass(seconds(5));
  EXPECT_EQ(shop.workers.sent.size(), asked + 1);
  shop.Says(R"({"recuperado":{"trabajo":1,"estado":"hecho","desenlace":1,"causa":0,"texto":""}})");
  EXPECT_EQ(shop.StateOf(1), "hecho");
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":2})");
}

TEST(Printer, WhatNobodyWillEverKnowHoldsNobodyUp) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Wants("clave-2");
  shop.Says(Before(1));
  shop.Says(
      R"({"fin":{"trabajo":1,"estado":"no_se_sabe","desenlace":4,"causa":601,"texto":"?","definitivo":true}})");
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":2})");
  EXPECT_EQ(JobJson(*shop.store->Find(1))["definitivo"], true);
}

TEST(Printer, AJobThatKillsItsWorkerBeforeItBeginsIsGivenUp) {
  ShopOfOne shop;
  shop.Wants("clave-1");
  for (int i = 0; i < 3; ++i) {
    shop.Says(kReady);
    shop.service->OnGone("caja1", "señal 11");
    shop.timers.Pass(minutes(2));
  }
  shop.Says(kReady);
  EXPECT_EQ(shop.StateOf(1), "no_hecho");
}

TEST(Printer, AWorkerThatDoesNotStartIsTriedLessAndLessOften) {
  ShopOfOne shop;
  int starts = 1;
  for (const auto pause :
       {milliseconds(200), milliseconds(1000), milliseconds(3000), milliseconds(10000)}) {
    EXPECT_EQ(shop.service->FindPrinter("caja1")->Show()["conexion"], "arrancando");
    shop.service->OnGone("caja1", "código 126");
    shop.timers.Pass(pause - milliseconds(1));
    EXPECT_EQ(shop.workers.starts["caja1"], starts);
    shop.timers.Pass(milliseconds(1));
    EXPECT_EQ(shop.workers.starts["caja1"], ++starts);
  }
  const auto shown = shop.service->FindPrinter("caja1")->Show();
  EXPECT_EQ(shown["conexion"], "detenida");
  EXPECT_EQ(shown["texto"], "código 126");
}

TEST(Printer, AQuestionIsAskedBetweenJobsAndNeverKept) {
  ShopOfOne shop;
  Json told;
  auto* const printer = shop.service->FindPrinter("caja1");
  printer->Ask("estado", [&](const Json& answer) { told = answer; });
  EXPECT_TRUE(told.is_null()) << "there is nobody to ask";
  shop.Says(kReady);
  printer->Ask("estado", [&](const Json& answer) { told = answer; });
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{},"operacion":"estado","trabajo":-1})");
  shop.Wants("clave-1");
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{},"operacion":"estado","trabajo":-1})");
  shop.Says(R"({"fin":{"trabajo":-1,"estado":"hecho","datos":{"contesta":true}}})");
  EXPECT_EQ(told["datos"]["contesta"], true);
  EXPECT_EQ(shop.LastSent(), R"({"cuerpo":{"cajon":1},"operacion":"cajon","trabajo":1})");
}

TEST(Printer, IsAskedHowItIsWhileNobodySells) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.timers.Pass(seconds(11));
  EXPECT_EQ(shop.workers.sent,
            (std::vector<std::string>{R"({"cuerpo":{},"operacion":"estado","trabajo":-1})"}));
  shop.timers.Pass(seconds(30));
  EXPECT_EQ(shop.workers.sent.size(), 1U) << "not before it has answered";
  shop.Says(R"({"fin":{"trabajo":-1,"estado":"hecho"}})");
  shop.Wants("clave-1");
  shop.timers.Pass(seconds(30));
  EXPECT_EQ(shop.workers.sent.size(), 2U) << "nor while it sells";
}

TEST(Printer, AWorkerThatSaysNothingForAnAgeIsEnded) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Says(Before(1));
  shop.timers.Pass(minutes(30));
  EXPECT_TRUE(shop.workers.killed.empty());
  shop.timers.Pass(minutes(15));
  EXPECT_FALSE(shop.workers.killed.empty());
}

TEST(Printer, TellsWhatHappensInItsOrder) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.Wants("clave-1");
  shop.Says(Before(1));
  shop.Says(R"({"novedad":{"contesta":true,"condiciones":[],"causa":0,"texto":""}})");
  shop.Says(R"({"novedad":{"contesta":true,"condiciones":[],"causa":0,"texto":""}})");
  shop.Says(R"({"novedad":{"aviso":{"texto":"Sin papel","pregunta":true}}})");
  shop.Says(End(1, "hecho"));
  std::string kinds;
  for (const auto& event : shop.store->EventsAfter(0, 100)) kinds += event.event.kind + " ";
  EXPECT_EQ(kinds, "impresora impresora trabajo impresora estado alarma trabajo impresora ");
}

TEST(Printer, AClosingIsToldToThoseFarAway) {
  ShopOfOne shop;
  shop.Says(kReady);
  shop.service->Take({.till = "",
                      .key = "clave-z1",
                      .printer = "caja1",
                      .operation = "informe",
                      .body = {{"tipo", "z"}}});
  shop.timers.Pass(milliseconds(0));
  shop.Says(Before(1));
  shop.Says(End(1, "hecho", R"(,"datos":{"tipo":"z","numero":"00000003"})"));
  const auto events = shop.store->EventsAfter(0, 100);
  const auto closing = std::find_if(events.begin(), events.end(), [](const auto& stored) {
    return stored.event.kind == "cierre";
  });
  ASSERT_NE(closing, events.end());
  EXPECT_EQ(shop.store->Unpublished(), 1);
  EXPECT_EQ((*ParseJson(closing->event.data))["informe"]["numero"], "00000003");
}

}  // namespace
}  // namespace puerta
