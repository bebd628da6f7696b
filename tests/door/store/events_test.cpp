#include <gtest/gtest.h>

#include <vector>

#include "shop.hpp"
#include "store/sqlite.hpp"

namespace puerta {
namespace {

using prueba::At;
using prueba::Shop;

Event Published(const std::string& printer, const std::string& data) {
  return {.printer = printer, .kind = "documento", .data = data, .publish = true};
}

Event Local(const std::string& data) {
  return {.printer = "caja1", .kind = "trabajo", .data = data};
}

TEST(Events, ThoseBehindTheLastThatWasSeen) {
  Shop shop;
  EXPECT_EQ(shop->LastEvent(), 0);
  const std::int64_t first = shop->Add(Local("1"), At(1));
  const std::int64_t second = shop->Add(Published("caja2", "2"), At(2));
  EXPECT_EQ(shop->LastEvent(), second);
  const std::vector<StoredEvent> events = shop->EventsAfter(first, 10);
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].id, second);
  EXPECT_EQ(events[0].moment, At(2));
  EXPECT_EQ(events[0].event.printer, "caja2");
  EXPECT_EQ(events[0].event.kind, "documento");
  EXPECT_EQ(events[0].event.data, "2");
  EXPECT_TRUE(events[0].event.publish);
  EXPECT_EQ(shop->EventsAfter(0, 1).size(), 1U);
}

TEST(Events, NoneOfAChangeThatWasNone) {
  Shop shop;
  const std::int64_t job = shop.Done("a");
  const std::vector<Event> events{Local("x"), Published("caja1", "y")};
  EXPECT_FALSE(shop->Finish(job, {.state = State::kDone, .answer = "{}"}, At(3), events));
  EXPECT_FALSE(shop->Begin(job, "{}", At(3), events));
  EXPECT_FALSE(shop->Cancel(job, "{}", At(3), events));
  EXPECT_EQ(shop->Accept(prueba::Sale("a"), At(3), events).novelty, Novelty::kKnown);
  EXPECT_EQ(shop->LastEvent(), 0);
  EXPECT_EQ(shop->Unpublished(), 0);
}

TEST(Events, WithTheChangeThatTheyTell) {
  Shop shop;
  const std::vector<Event> events{Local("x"), Published("caja1", "y")};
  const std::int64_t job = shop->Accept(prueba::Sale("a"), At(0), events).job.number;
  EXPECT_TRUE(shop->Begin(job, "{}", At(1), events));
  EXPECT_TRUE(shop->Finish(job, {.state = State::kDone, .answer = "{}"}, At(2), events));
  EXPECT_EQ(shop->EventsAfter(0, 100).size(), 6U);
  EXPECT_EQ(shop->Unpublished(), 3);
}

// A published event has its number among its printer's, and a key that no other ever has.
TEST(Events, SequencesAndKeys) {
  Shop shop;
  for (const char* printer : {"caja1", "caja2", "caja1"})
    shop->Add(Published(printer, "{}"), At(0));
  shop->Add(Local("{}"), At(0));
  shop.Open();
  shop->Add(Published("caja1", "{}"), At(0));
  Database file(shop.Path());
  EXPECT_EQ(file.Text("SELECT group_concat(impresora || secuencia, ' ') FROM eventos"),
            "caja11 caja21 caja12 caja10 caja13");
  EXPECT_EQ(file.Number("SELECT count(DISTINCT clave) FROM eventos WHERE length(clave) = 32"), 5);
}

TEST(Events, WithoutABrokerNothingWaitsForOne) {
  Shop shop(false);
  shop->Add(Published("caja1", "{}"), At(0));
  EXPECT_EQ(shop->Unpublished(), 0);
  EXPECT_EQ(shop->EventsAfter(0, 10).size(), 1U);
  EXPECT_EQ(shop->Prune(At(1), 10), 1);
}

TEST(Events, AgeTakesThoseThatNobodyWaitsFor) {
  Shop shop;
  shop->Add(Local("old"), At(0));
  const std::int64_t waits = shop->Add(Published("caja1", "waits"), At(0));
  shop->Add(Local("old too"), At(1));
  const std::int64_t young = shop->Add(Local("young"), At(100));
  EXPECT_EQ(shop->Prune(At(50), 1), 1);
  EXPECT_EQ(shop->Prune(At(50), 10), 1);
  EXPECT_EQ(shop->Prune(At(50), 10), 0);
  const std::vector<StoredEvent> left = shop->EventsAfter(0, 10);
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(left[0].id, waits);
  EXPECT_EQ(left[1].id, young);
}

TEST(Events, NumbersDoNotComeBack) {
  Shop shop;
  const std::int64_t last = shop->Add(Local("old"), At(0));
  EXPECT_EQ(shop->Prune(At(1), 10), 1);
  shop.Open();
  EXPECT_EQ(shop->LastEvent(), last);
  EXPECT_GT(shop->Add(Local("new"), At(2)), last);
}

}  // namespace
}  // namespace puerta
