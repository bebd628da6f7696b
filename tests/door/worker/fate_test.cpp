// What became of a job that did not end by itself: journal and counters as witnesses.
#include "worker/fate.hpp"

#include <gtest/gtest.h>

#include "door/sale/shop.hpp"

namespace puerta {
namespace {

enum { kNothingTold = 0, kDone = 1, kRefused = 2, kNobodyKnows = 4, kNotDone = 6 };

Plan PlanFor(std::string_view operation, const Json& body, const std::string& family = "TF") {
  return PlanOf(operation, body, ReadFacts(FactsOfFamily(family)));
}

Counters Counted(std::int64_t invoices, std::int64_t cancelled, std::int64_t closings = 3,
                 std::int64_t pages = 0) {
  Counters counters;
  counters.fill(0);
  counters[2] = invoices;
  counters[kCancelled] = cancelled;
  counters[kClosings] = closings;
  counters[kNonFiscal] = pages;
  return counters;
}

struct Command {
  const char* bytes;
  int outcome;
  const char* number = "";
};

Evidence Journal(std::initializer_list<Command> commands) {
  Evidence evidence{.whole = true, .sent = {}};
  for (const auto& one : commands)
    evidence.sent.push_back(
        {.command = one.bytes, .outcome = one.outcome, .answer = {"0080", "0600", one.number}});
  return evidence;
}

std::string Words(const Verdict& verdict) {
  constexpr std::array kFates{"done", "not done", "unknown"};
  const std::string words = kFates.at(static_cast<std::size_t>(verdict.fate));
  return verdict.number.empty() ? words : words + " " + verdict.number;
}

TEST(AnInvoice, IsWhatTheJournalSaysOfItsClosing) {
  const auto plan = PlanFor("comprobante", InvoiceA());
  const struct {
    Evidence evidence;
    Counters now;
    const char* words;
  } rows[] = {
      {Journal({}), Counted(7, 0), "not done"},
      {Journal({{"`", kDone}, {"b", kDone}, {"d", kDone}}), Counted(7, 1), "not done"},
      {Journal({{"`", kDone}, {"b", kDone}, {"e", kDone, "00000008"}}), Counted(8, 0),
       "done 00000008"},
      {Journal({{"`", kDone}, {"e", kDone, "12345"}}), Counted(8, 0), "done 00000008"},
      {Journal({{"`", kDone}, {"e", kRefused}, {"d", kDone}}), Counted(8, 1), "not done"},
      {Journal({{"`", kDone}, {"e", kNotDone}, {"d", kDone}}), Counted(8, 1), "not done"},
      {Journal({{"`", kDone}, {"e", kNothingTold}}), Counted(8, 0), "done 00000008"},
      {Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counted(8, 1), "not done"},
      {Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counted(7, 0), "not done"},
      {Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counted(9, 0), "unknown"},
      {Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counted(8, 2), "unknown"},
      {Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counters{}, "unknown"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Words(FateOf(plan, row.evidence, Counted(7, 0), row.now)), row.words);
}

TEST(AnInvoice, IsWhatTheCountersSayWhereTheJournalIsSilent) {
  const auto plan = PlanFor("comprobante", InvoiceA());
  const Evidence silent;
  EXPECT_EQ(Words(FateOf(plan, silent, Counted(7, 0), Counted(7, 0))), "not done");
  EXPECT_EQ(Words(FateOf(plan, silent, Counted(7, 0), Counted(8, 0))), "done 00000008");
  EXPECT_EQ(Words(FateOf(plan, silent, Counted(7, 0), Counted(8, 1))), "not done");
  EXPECT_EQ(Words(FateOf(plan, silent, Counters{}, Counted(8, 0))), "unknown");
}

TEST(ADeliveryNote, HasTheJournalAlone) {
  const auto plan = PlanFor("comprobante", With(Ticket(), {{"/tipo", "remito"}}), "FC");
  EXPECT_EQ(Words(FateOf(plan, Journal({{"`", kDone}, {"e", kDone, "00000005"}}), {}, {})),
            "done 00000005");
  EXPECT_EQ(Words(FateOf(plan, Journal({{"`", kDone}, {"d", kDone}}), {}, {})), "not done");
  EXPECT_EQ(Words(FateOf(plan, Journal({{"`", kDone}, {"e", kNobodyKnows}}), Counted(7, 0),
                         Counted(7, 0))),
            "unknown");
  EXPECT_EQ(Words(FateOf(plan, Evidence{}, Counted(7, 0), Counted(7, 0))), "unknown");
}

TEST(APage, IsDoneWithAllItsLinesAndNoMarkOfAnotherEnd) {
  const auto plan = PlanFor("no_fiscal", Json{{"renglones", {"uno", "dos"}}});
  const struct {
    Evidence evidence;
    const char* words;
  } rows[] = {
      {Journal({{"H", kDone},
                {"I\x1C"
                 "uno",
                 kDone},
                {"I\x1C"
                 "dos",
                 kDone},
                {"J", kDone}}),
       "done"},
      {Journal({{"H", kDone},
                {"I\x1C"
                 "uno",
                 kDone},
                {"J", kDone}}),
       "not done"},
      {Journal({{"H", kDone},
                {"I\x1C"
                 "uno",
                 kDone},
                {"I\x1C*** PAGINA INCOMPLETA ***", kDone},
                {"J", kDone}}),
       "not done"},
      {Journal({{"H", kDone},
                {"I\x1C"
                 "uno",
                 kDone},
                {"I\x1C"
                 "dos",
                 kDone},
                {"J", kNobodyKnows}}),
       "unknown"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Words(FateOf(plan, row.evidence, Counted(0, 0, 0, 0), Counted(0, 0, 0, 1))),
              row.words);
}

TEST(AClosing, IsCounted) {
  const auto plan = PlanFor("informe", Json{{"tipo", "z"}});
  const auto doubtful = Journal({{"9\x1CZ\x1CP", kNobodyKnows}});
  EXPECT_EQ(Words(FateOf(plan, doubtful, Counted(7, 0, 3), Counted(7, 0, 4))), "done 00000004");
  EXPECT_EQ(Words(FateOf(plan, doubtful, Counted(7, 0, 3), Counted(7, 0, 3))), "not done");
  EXPECT_EQ(Words(FateOf(plan, Journal({{"9\x1CZ\x1CP", kDone, "00004"}}), Counted(7, 2, 3),
                         Counted(0, 0, 4))),
            "done 00000004");
}

TEST(WhatNothingShows, IsNotKnown) {
  for (const auto& [operation, body, byte] :
       {std::tuple{"informe", R"({"tipo": "x"})", "9"},
        {"cajon", "{}", "{"},
        {"informe", R"({"tipo": "numeros", "desde": 1, "hasta": 2})", ";"}}) {
    const auto plan = PlanFor(operation, Json::parse(body));
    EXPECT_EQ(Words(FateOf(plan, Journal({{byte, kDone}}), {}, {})), "done") << byte;
    EXPECT_EQ(Words(FateOf(plan, Journal({{byte, kNothingTold}}), {}, {})), "unknown") << byte;
    EXPECT_EQ(Words(FateOf(plan, Journal({{byte, kRefused}}), {}, {})), "not done") << byte;
    EXPECT_EQ(Words(FateOf(plan, Journal({}), {}, {})), "not done") << byte;
  }
  EXPECT_EQ(Words(FateOf(Plan{}, Journal({}), {}, {})), "unknown");
}

TEST(AnOpenDocument, IsOursWhenWeOpenedIt) {
  EXPECT_TRUE(HasOpened(Journal({{"`", kDone}}), false));
  EXPECT_TRUE(HasOpened(Journal({{"@", kNothingTold}}), false));
  EXPECT_FALSE(HasOpened(Journal({{"`", kRefused}}), false));
  EXPECT_FALSE(HasOpened(Journal({}), false));
  EXPECT_TRUE(HasOpened(Evidence{}, false));
  EXPECT_FALSE(HasOpened(Evidence{}, true));
  EXPECT_TRUE(HasDoneNothing(Journal({{"`", kRefused}})));
  EXPECT_FALSE(HasDoneNothing(Journal({{"`", kNothingTold}})));
  EXPECT_FALSE(HasDoneNothing(Evidence{}));
}

}  // namespace
}  // namespace puerta
