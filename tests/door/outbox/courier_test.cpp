#include "outbox/courier.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "../store/shop.hpp"

namespace puerta {
namespace {

using prueba::At;
using prueba::Shop;
using std::chrono::milliseconds;
using std::chrono::seconds;

// A broker of which a test says what it does; its time moves while somebody waits.
class FakeBroker : public Broker {
 public:
  void Connect() override {
    told += "connect ";
    tries.push_back(now);
    if (refuses) coming.push_back({.sign = Sign::kLost, .words = "no se puede conectar"});
  }
  void Disconnect() override { told += "disconnect "; }
  int Send(const std::string& topic, const std::string& payload) override {
    if (broken) return 0;
    const Json letter = Json::parse(payload);
    told += letter["impresora"].get<std::string>() + "#" + letter["secuencia"].dump() + " ";
    topics.push_back(topic);
    payloads.push_back(payload);
    return ++last;
  }
  void Subscribe(const std::string& topic) override { told += "subscribe " + topic + " "; }
  std::vector<Happening> Wait(milliseconds most) override {
    if (coming.empty()) now += most;
    return std::exchange(coming, {});
  }
  milliseconds Spread(milliseconds pause) override { return pause; }
  milliseconds Now() override { return now; }

  std::vector<Happening> coming;
  std::vector<std::string> topics;
  std::vector<std::string> payloads;
  std::string told;
  std::vector<milliseconds> tries;
  bool broken = false;
  bool refuses = false;
  int last = 0;
  milliseconds now{1000};
};

Happening Acknowledged(int letter) {
  return {.sign = Sign::kAcknowledged, .letter = letter};
}

class Chain {
 public:
  explicit Chain(bool receipts = false) {
    settings.shop = "suc1";
    settings.waits_for_receipt = receipts;
    box = std::make_unique<LetterBox>(shop.Path());
    courier = std::make_unique<Courier>(settings, *box, broker,
                                        [this](const std::string& line) { log += line + "\n"; });
  }

  void Happened(const std::string& printer, const std::string& data = R"({"x":1})") {
    shop->Add({.printer = printer, .kind = "documento", .data = data, .publish = true}, At(0));
  }

  // What the courier told the broker in a round in which this comes.
  std::string Round(std::vector<Happening> coming = {}) {
    broker.told.clear();
    broker.coming = std::move(coming);
    courier->Round();
    return broker.told;
  }
  void Connect() { Round({{.sign = Sign::kConnected}}); }

  Shop shop;
  OutboxSettings settings;
  FakeBroker broker;
  std::string log;
  std::unique_ptr<LetterBox> box;
  std::unique_ptr<Courier> courier;
};

TEST(Courier, OneOfEachPrinterAtATime) {
  Chain chain;
  for (const char* printer : {"caja1", "caja1", "caja2", "caja1"}) chain.Happened(printer);
  EXPECT_EQ(chain.Round({{.sign = Sign::kConnected}}), "connect ");
  EXPECT_EQ(chain.Round(), "caja1#1 caja2#1 ");
  EXPECT_EQ(chain.Round(), "");
  EXPECT_EQ(chain.Round({Acknowledged(2)}), "");
  EXPECT_EQ(chain.Round({Acknowledged(1)}), "");
  EXPECT_EQ(chain.shop->Unpublished(), 2);
  EXPECT_EQ(chain.Round({Acknowledged(3)}), "caja1#2 ");
  EXPECT_EQ(chain.Round({Acknowledged(4)}), "caja1#3 ");
  EXPECT_EQ(chain.shop->Unpublished(), 0);
  EXPECT_EQ(chain.courier->State().delivered, 4);
  EXPECT_EQ(chain.log, "");
}

TEST(Courier, WhatWasNotAcknowledgedGoesAgain) {
  Chain chain;
  chain.Happened("caja1");
  chain.Happened("caja1");
  chain.Connect();
  chain.Round();
  const std::string first = chain.broker.payloads.back();
  EXPECT_EQ(chain.Round({{.sign = Sign::kLost, .words = "se cortó"}}), "disconnect ");
  EXPECT_FALSE(chain.courier->State().connected);
  EXPECT_EQ(chain.shop->Unpublished(), 2);
  chain.Round();
  chain.Connect();
  EXPECT_EQ(chain.Round(), "caja1#1 ");
  EXPECT_EQ(chain.broker.payloads.back(), first) << "a repetition is the same letter";
  EXPECT_EQ(chain.log, "mqtt: se cortó\nmqtt: publica\n");
}

TEST(Courier, AnAcknowledgementOfAnotherConnectionIsNone) {
  Chain chain;
  chain.Happened("caja1");
  chain.Connect();
  chain.Round({{.sign = Sign::kLost}, Acknowledged(1)});
  EXPECT_EQ(chain.shop->Unpublished(), 1);
}

TEST(Courier, ItTriesForEverWithPausesThatGrow) {
  Chain chain;
  chain.broker.refuses = true;
  while (chain.broker.tries.size() < 10) chain.Round();
  std::ostringstream pauses;
  for (std::size_t i = 1; i < 10; ++i) {
    pauses << (chain.broker.tries[i] - chain.broker.tries[i - 1]).count() / 1000 << ' ';
  }
  EXPECT_EQ(pauses.str(), "1 2 4 8 16 32 60 60 60 ");
  EXPECT_EQ(chain.log, "mqtt: no se puede conectar\n") << "said once";
}

TEST(Courier, ABrokerThatRefusesOrHasNobodyHoldsUpThatPrinterAlone) {
  struct Case {
    const char* story;
    Happening answer;
    bool waits_for_listener;
    std::int64_t left;
    const char* trouble;
  };
  const std::vector<Case> cases{
      {"refused",
       {Sign::kAcknowledged, 1, true, false, "Quota"},
       true,
       1,
       "el servidor rechaza: Quota"},
      {"nobody there",
       {Sign::kAcknowledged, 1, false, true, {}},
       true,
       1,
       "nadie escucha en el servidor"},
      {"nobody there, which is all right", {Sign::kAcknowledged, 1, false, true, {}}, false, 0, ""},
  };
  for (const Case& row : cases) {
    Chain chain;
    chain.settings.waits_for_listener = row.waits_for_listener;
    Courier courier(chain.settings, *chain.box, chain.broker, [](const std::string&) {});
    chain.Happened("caja1");
    chain.broker.coming = {{.sign = Sign::kConnected}};
    courier.Round();
    chain.broker.coming = {row.answer};
    courier.Round();
    EXPECT_EQ(courier.State().trouble, row.trouble) << row.story;
    EXPECT_EQ(chain.shop->Unpublished(), row.left) << row.story;
    chain.Happened("caja2");
    chain.broker.told.clear();
    courier.Round();
    EXPECT_EQ(chain.broker.told, "caja2#1 ") << row.story;
    chain.broker.told.clear();
    for (int i = 0; i < 3; ++i) courier.Round();
    EXPECT_EQ(chain.broker.told, row.left == 1 ? "caja1#1 " : "") << row.story;
  }
}

TEST(Courier, AConnectionThatAcknowledgesNothingIsNone) {
  Chain chain;
  chain.Happened("caja1");
  chain.Connect();
  const milliseconds sent = chain.broker.now;
  while (chain.Round().find("disconnect") == std::string::npos) {
    ASSERT_LT(chain.broker.now - sent, seconds{120});
  }
  EXPECT_GE(chain.broker.now - sent, seconds{60});
  EXPECT_EQ(chain.courier->State().trouble, "el servidor no confirma lo que recibe");
}

TEST(Courier, OneThatNeverAnswersIsTriedAgain) {
  Chain chain;
  EXPECT_EQ(chain.Round(), "connect ");
  int rounds = 0;
  while (chain.Round().empty()) ASSERT_LT(++rounds, 30);
  EXPECT_EQ(chain.courier->State().trouble, "el servidor no contesta");
}

TEST(Courier, WhatCannotBeSentIsTriedOnANewConnection) {
  Chain chain;
  chain.Happened("caja1");
  chain.Connect();
  chain.broker.broken = true;
  EXPECT_EQ(chain.Round(), "disconnect ");
  chain.broker.broken = false;
  chain.Round();
  chain.Connect();
  EXPECT_EQ(chain.Round(), "caja1#1 ");
}

TEST(Courier, HowManyWait) {
  Chain chain;
  for (int i = 0; i < 3; ++i) chain.Happened("caja1");
  chain.Round();
  EXPECT_EQ(chain.courier->State().waiting, 3);
  EXPECT_FALSE(chain.courier->State().connected);
}

Happening Receipt(const std::string& text) {
  return {.sign = Sign::kReceived, .words = text};
}

std::string KeysOf(const Json& letter) {
  return Json({{"claves", {letter["clave"]}}}).dump();
}

TEST(Receipts, ALetterIsKeptUntilTheFarEndHasIt) {
  Chain chain(true);
  for (int i = 0; i < 3; ++i) chain.Happened("caja1");
  EXPECT_EQ(chain.Round({{.sign = Sign::kConnected}}), "connect subscribe kestra/v1/suc1/+/acuse ");
  for (int i = 1; i <= 3; ++i) chain.Round({Acknowledged(i)});
  EXPECT_EQ(chain.shop->Unpublished(), 3);
  for (const char* nonsense : {"", "{}", "[]", R"({"claves":7})", R"({"claves":[1,"x"]})"}) {
    chain.Round({Receipt(nonsense)});
  }
  EXPECT_EQ(chain.shop->Unpublished(), 3);
  chain.Round({Receipt(KeysOf(Json::parse(chain.broker.payloads[0])))});
  EXPECT_EQ(chain.shop->Unpublished(), 2);

  // The broker forgot the rest with its life.
  chain.Round({{.sign = Sign::kLost}});
  chain.Round();
  chain.Connect();
  EXPECT_EQ(chain.Round({Acknowledged(4)}), "caja1#2 ");
  EXPECT_EQ(chain.Round(), "caja1#3 ");
}

TEST(Receipts, ThoseThatDoNotComeAreAskedForByTheSameLettersAgain) {
  Chain chain(true);
  chain.Happened("caja1");
  chain.Connect();
  chain.Round({Acknowledged(1)});
  const milliseconds sent = chain.broker.now;
  while (chain.Round() != "caja1#1 ") ASSERT_LT(chain.broker.now - sent, seconds{400});
  EXPECT_GE(chain.broker.now - sent, seconds{300});
  EXPECT_EQ(chain.courier->State().trouble, "la central no acusa recibo");
  EXPECT_EQ(chain.broker.payloads[0], chain.broker.payloads[1]);
}

TEST(Letters, TopicAndShape) {
  Chain chain;
  chain.Happened("caja1", R"({"trabajo":7,"comprobante":{"numero":"00000012"}})");
  chain.Happened("", "no object");
  chain.Connect();
  chain.Round();
  EXPECT_EQ(chain.broker.topics, (std::vector<std::string>{"kestra/v1/suc1/-/documento",
                                                           "kestra/v1/suc1/caja1/documento"}));
  const Json letter = Json::parse(chain.broker.payloads.back());
  EXPECT_EQ(letter["esquema"], "kestra.puerta/1");
  EXPECT_EQ(letter["clave"].get<std::string>().size(), 32U);
  EXPECT_EQ(letter["local"], "suc1");
  EXPECT_EQ(letter["tipo"], "documento");
  EXPECT_EQ(letter["momento"], "2026-09-21T14:13:20.000Z");
  EXPECT_EQ(letter["datos"]["comprobante"]["numero"], "00000012");
  EXPECT_EQ(Json::parse(chain.broker.payloads.front())["datos"], Json::object());
}

TEST(Letters, Timestamps) {
  EXPECT_EQ(Timestamp(Moment{}), "1970-01-01T00:00:00.000Z");
  EXPECT_EQ(Timestamp(Moment{milliseconds{1'790'000'000'123}}), "2026-09-21T14:13:20.123Z");
}

}  // namespace
}  // namespace puerta
