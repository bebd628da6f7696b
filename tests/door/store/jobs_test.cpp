#include <gtest/gtest.h>

#include <vector>

#include "shop.hpp"

namespace puerta {
namespace {

using prueba::At;
using prueba::NumbersOf;
using prueba::Sale;
using prueba::Shop;
using Numbers = std::vector<std::int64_t>;

TEST(Jobs, AKeyIsTakenOnce) {
  Shop shop;
  const Acceptance first = shop->Accept(Sale("k1"), At(0));
  EXPECT_EQ(first.novelty, Novelty::kNew);
  EXPECT_EQ(first.job.state, State::kQueued);
  EXPECT_EQ(first.job.body, R"({"total":"10.00"})");
  EXPECT_EQ(first.job.accepted, At(0));

  const Acceptance again = shop->Accept(Sale("k1"), At(9));
  EXPECT_EQ(again.novelty, Novelty::kKnown);
  EXPECT_EQ(again.job.number, first.job.number);
  EXPECT_EQ(again.job.accepted, At(0));
  EXPECT_EQ(shop->Waiting("caja1"), 1);
  EXPECT_EQ(shop->FindKey("t1", "k1").value().number, first.job.number);
  EXPECT_FALSE(shop->FindKey("t2", "k1").has_value());
}

TEST(Jobs, WhatElseCannotComeUnderAKey) {
  struct Case {
    const char* story;
    Request request;
    Novelty novelty;
  };
  Request informe = Sale("k1");
  informe.operation = "informe";
  Request other_till = Sale("k1");
  other_till.till = "t2";
  const std::vector<Case> cases{
      {"another body", Sale("k1", "caja1", "{}"), Novelty::kOtherBody},
      {"another printer", Sale("k1", "caja2"), Novelty::kOtherBody},
      {"another operation", informe, Novelty::kOtherBody},
      {"another till's key is another key", other_till, Novelty::kNew},
      {"another key", Sale("K1"), Novelty::kNew},
  };
  Shop shop;
  const std::int64_t first = shop.Take("k1");
  for (const Case& row : cases) {
    const Acceptance answer = shop->Accept(row.request, At(1));
    EXPECT_EQ(answer.novelty, row.novelty) << row.story;
    EXPECT_EQ(answer.job.number == first, row.novelty == Novelty::kOtherBody) << row.story;
  }
}

TEST(Jobs, TheAnswerIsTheSameForEver) {
  Shop shop;
  const std::int64_t job = shop.Printing("k1");
  ASSERT_TRUE(
      shop->Finish(job, {.state = State::kDone, .answer = R"({"numero":"00000012"})"}, At(5)));
  EXPECT_FALSE(shop->Finish(job, {.state = State::kNotDone, .answer = "{}"}, At(6)));
  EXPECT_FALSE(shop->Cancel(job, "{}", At(6)));
  EXPECT_FALSE(shop->Begin(job, "{}", At(6)));
  for (int opened = 0; opened < 2; ++opened) {
    const Job known = shop->Accept(Sale("k1"), At(7)).job;
    EXPECT_EQ(known.state, State::kDone);
    EXPECT_EQ(known.answer, R"({"numero":"00000012"})");
    EXPECT_EQ(known.ended, At(5));
    EXPECT_TRUE(IsOver(known));
    shop.Open();
  }
}

TEST(Jobs, NobodyKnowsYet) {
  Shop shop;
  const std::int64_t job = shop.Printing("k1");
  ASSERT_TRUE(shop->Finish(job, {.state = State::kUnknown, .answer = "?"}, At(2)));
  EXPECT_EQ(NumbersOf(shop->Interrupted("caja1")), Numbers{job});
  EXPECT_FALSE(IsOver(shop->Find(job).value()));
  ASSERT_TRUE(shop->Finish(job, {.state = State::kNotDone, .answer = "no"}, At(3)));
  EXPECT_EQ(shop.StateOf(job), State::kNotDone);
  EXPECT_TRUE(shop->Interrupted("caja1").empty());
}

TEST(Jobs, NobodyWillEverKnow) {
  Shop shop;
  const std::int64_t job = shop.Printing("k1");
  ASSERT_TRUE(shop->Finish(job, {.state = State::kUnknown, .answer = "?", .settled = true}, At(2)));
  EXPECT_TRUE(IsOver(shop->Find(job).value()));
  EXPECT_TRUE(shop->Interrupted("caja1").empty());
  EXPECT_FALSE(shop->Finish(job, {.state = State::kDone, .answer = "{}"}, At(3)));
}

TEST(Jobs, AQueueForEachPrinterInOrder) {
  Shop shop;
  const std::int64_t first = shop.Take("a", "caja1");
  const std::int64_t other = shop.Take("b", "caja2");
  const std::int64_t second = shop.Take("c", "caja1");
  EXPECT_EQ(shop->Next("caja1").value().number, first);
  EXPECT_EQ(shop->Next("caja2").value().number, other);
  EXPECT_EQ(shop->Waiting("caja1"), 2);
  EXPECT_EQ(shop->Position(shop->Find(second).value()), 2);
  ASSERT_TRUE(shop->Begin(first, R"({"x":1})", At(1)));
  EXPECT_EQ(shop->Find(first).value().before, R"({"x":1})");
  EXPECT_EQ(shop->Find(first).value().began, At(1));
  EXPECT_EQ(shop->Next("caja1").value().number, second);
  EXPECT_EQ(shop->Position(shop->Find(first).value()), 0);
  EXPECT_EQ(shop->Position(shop->Find(second).value()), 1);
  EXPECT_FALSE(shop->Next("caja3").has_value());
  EXPECT_FALSE(shop->Find(99).has_value());
}

TEST(Jobs, CancelledUntilItBegins) {
  Shop shop;
  const std::int64_t begun = shop.Printing("a");
  const std::int64_t waiting = shop.Take("b");
  EXPECT_FALSE(shop->Cancel(begun, "{}", At(2)));
  EXPECT_TRUE(shop->Cancel(waiting, R"({"estado":"cancelado"})", At(2)));
  EXPECT_EQ(shop.StateOf(waiting), State::kCancelled);
  EXPECT_EQ(shop->Find(waiting).value().answer, R"({"estado":"cancelado"})");
  EXPECT_FALSE(shop->Begin(waiting, "{}", At(3)));
  EXPECT_FALSE(shop->Next("caja1").has_value());
}

TEST(Jobs, AfterADeathThoseThatHadBegun) {
  Shop shop;
  shop.Done("a");
  const std::int64_t printing = shop.Printing("b");
  const std::int64_t queued = shop.Take("c");
  shop.Printing("d", "caja2");
  shop.Open();
  EXPECT_EQ(NumbersOf(shop->Interrupted("caja1")), Numbers{printing});
  EXPECT_EQ(shop->Next("caja1").value().number, queued);
}

TEST(Jobs, APrintersJobsTheNewestFirst) {
  Shop shop;
  Numbers numbers;
  for (const char* key : {"a", "b", "c", "d"}) numbers.insert(numbers.begin(), shop.Done(key));
  shop.Done("x", "caja2");
  EXPECT_EQ(NumbersOf(shop->JobsOf("caja1", 0, 10)), numbers);
  EXPECT_EQ(NumbersOf(shop->JobsOf("caja1", 0, 1)), Numbers{numbers[0]});
  EXPECT_EQ(NumbersOf(shop->JobsOf("caja1", numbers[1], 10)), (Numbers{numbers[2], numbers[3]}));
}

TEST(Jobs, WordsOfTheStates) {
  EXPECT_EQ(WordsOf(State::kQueued), "en_cola");
  EXPECT_EQ(WordsOf(State::kPrinting), "imprimiendo");
  EXPECT_EQ(WordsOf(State::kDone), "hecho");
  EXPECT_EQ(WordsOf(State::kNotDone), "no_hecho");
  EXPECT_EQ(WordsOf(State::kUnknown), "no_se_sabe");
  EXPECT_EQ(WordsOf(State::kCancelled), "cancelado");
}

// Bodies go for their age; keys, answers and what is not over stay.
TEST(Jobs, WhatAgeTakes) {
  Shop shop;
  const std::int64_t done = shop.Done("a");
  const std::int64_t young = shop.Done("b");
  const std::int64_t printing = shop.Printing("c");
  const std::int64_t queued = shop.Take("d");
  EXPECT_EQ(shop->Prune(At(3), 1), 1);
  EXPECT_EQ(shop->Find(done).value().body, "");
  EXPECT_NE(shop->Find(young).value().body, "");
  EXPECT_EQ(shop->Prune(At(3), 10), 1);
  EXPECT_EQ(shop->Prune(At(3), 10), 0);
  for (const std::int64_t number : {printing, queued}) {
    EXPECT_NE(shop->Find(number).value().body, "") << number;
  }
  EXPECT_NE(shop->Find(printing).value().before, "");
  const Acceptance again = shop->Accept(Sale("a"), At(4));
  EXPECT_EQ(again.novelty, Novelty::kKnown);
  EXPECT_EQ(again.job.answer, "{}");
  EXPECT_EQ(shop->Accept(Sale("a", "caja1", "other"), At(4)).novelty, Novelty::kOtherBody);
}

}  // namespace
}  // namespace puerta
