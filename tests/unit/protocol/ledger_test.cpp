#include "protocol/ledger.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/settlement.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

using namespace std::string_literals;
using enum Finding;

// Digits as a shop has them: quantity 5.3, price 7.2, rate 2.2, internal taxes 7.8, amounts 9.2.
State Digits() {
  State state;
  state.DecCantidad = 3;
  state.DecPrecio = 2;
  state.DecIVA = 2;
  state.DecImpInt = 8;
  state.DecDesc = 2;
  state.DecPercepcion = 2;
  return state;
}

std::string Fields(std::string command, const std::vector<std::string>& fields) {
  for (const auto& field : fields) command += "\x1C" + field;
  return command;
}

std::string Opening(const std::string& letter) {
  return Fields("`", {"T", "C", letter, "1"});
}
std::string Ticket() {
  return Fields("@", {"C"});
}
std::string TicketLine(const std::string& quantity, const std::string& price,
                       const std::string& qualifier = "M") {
  return Fields("B", {"Pan", quantity, price, "2100", qualifier, "0001", "0000", "0"});
}
std::string InvoiceLine(const std::string& quantity, const std::string& price,
                        const std::string& taxes = "0", const std::string& rate = "2100") {
  return Fields("b", {"Pan", quantity, price, rate, "M", "0001", "0000", "\x7F", "\x7F", "\x7F",
                      "\x7F", taxes});
}
std::string Discount(const std::string& amount) {
  return Fields("d", {"Socio", amount, "D"});
}

struct TotalRow {
  const char* sentence;
  std::vector<std::string> commands;
  std::int64_t cents;
  std::int64_t slack;
};

const TotalRow kTotals[] = {
    {"an open document has nothing on it", {Ticket()}, 0, 0},
    {"quantity times price", {Ticket(), TicketLine("00002000", "000150000")}, 300000, 0},
    {"what is no whole cent is rounded", {Ticket(), TicketLine("00000333", "000001001")}, 333, 1},
    {"a written point counts", {Ticket(), TicketLine("00001000", "0001500.00")}, 150000, 0},
    {"and needs nothing before it", {Ticket(), TicketLine("00001000", ".50")}, 50, 0},
    {"a void takes it off",
     {Ticket(), TicketLine("00002000", "000150000"), TicketLine("00001000", "000150000", "m")},
     150000,
     1},
    {"letter A adds the tax", {Opening("A"), InvoiceLine("00010000", "000032000")}, 387200, 2},
    {"and internal taxes by the unit",
     {Opening("A"), InvoiceLine("00002000", "000010000", "000000150000000")},
     24200 + 300,
     2},
    {"letter B has them in its price",
     {Opening("B"), InvoiceLine("00002000", "000010000", "000000150000000")},
     20000,
     0},
    {"a discount",
     {Opening("B"), InvoiceLine("00001000", "000010000"), Discount("00000001000")},
     9000,
     0},
    {"a discount on letter A brings its tax along",
     {Opening("A"), InvoiceLine("00001000", "000010000"), Discount("00000001000")},
     10890,
     5},
    {"a surcharge on letter A too",
     {Opening("A"), InvoiceLine("00001000", "000010000"), Fields("d", {"Flete", "1000", "R"})},
     13310,
     5},
    {"a perception",
     {Opening("B"), InvoiceLine("00001000", "000010000"),
      Fields("f", {"IIBB", "O", "0000000150", "0000"})},
     10150,
     0},
};

TEST(Ledger, ItsTotalIsTheSumOfWhatWasAccepted) {
  for (const auto& row : kTotals) {
    SCOPED_TRACE(row.sentence);
    Ledger ledger;
    for (const auto& command : row.commands) Enter(ledger, command, Digits());
    ASSERT_TRUE(ledger.total);
    EXPECT_EQ(ledger.total->cents, row.cents);
    EXPECT_EQ(ledger.total->slack, row.slack);
  }
}

struct UnknownRow {
  const char* sentence;
  std::vector<std::string> commands;
  std::int64_t lines;
};

const UnknownRow kUnknown[] = {
    {"no quantity", {Ticket(), TicketLine("", "000150000")}, 1},
    {"no price", {Ticket(), TicketLine("00001000", "1.5x")}, 1},
    {"more than can be counted", {Ticket(), TicketLine("99999999999", "99999999999")}, 1},
    {"finer than can be counted",
     {Ticket(), TicketLine("0.0000000000000001", "0.0000000000000001")},
     1},
    {"more hundredths than there are", {Opening("B"), Discount("99999999999999999.")}, 0},
    {"a rate that is none", {Opening("A"), InvoiceLine("1000", "100", "0", "x")}, 1},
    {"internal taxes that are none", {Opening("A"), InvoiceLine("1000", "100", "x")}, 1},
    {"more tax than can be counted",
     {Opening("A"), InvoiceLine("99999999999", "9999999", "0", "9999999")},
     1},
    {"a discount on nothing, whose tax is nobody's", {Opening("A"), Discount("1000")}, 0},
    {"a discount on what is not known",
     {Opening("A"), InvoiceLine("", "100"), Discount("1000")},
     1},
    {"a perception that is none", {Opening("B"), Fields("f", {"IIBB", "O", "x", "0000"})}, 0},
};

TEST(Ledger, WhatCannotBeReckonedIsNotKnown) {
  for (const auto& row : kUnknown) {
    SCOPED_TRACE(row.sentence);
    Ledger ledger;
    for (const auto& command : row.commands) Enter(ledger, command, Digits());
    EXPECT_FALSE(ledger.total);
    EXPECT_EQ(ledger.lines, row.lines);
  }
}

TEST(Ledger, AClosingCountsOneAndItsNumberIsExact) {
  Ledger ledger;
  ledger.counters[3] = 7;
  Enter(ledger, Opening("B"), Digits());
  Enter(ledger, Fields("e", {"T", "B", "\x7F"}), Digits());
  EXPECT_EQ(ledger.counters[3], 8);
  EXPECT_EQ(ledger.open, false);
  EXPECT_FALSE(ledger.lines);
  EnterNumber(ledger, Fields("e", {"T", "B", "\x7F"}), "00000012");
  EXPECT_EQ(ledger.counters[3], 12);
}

TEST(Ledger, ADailyClosingBeginsTheDayAnew) {
  Ledger ledger;
  EnterNumber(ledger, Fields("9", {"X", "P"}), "00005");
  EXPECT_EQ(ledger.counters[kDailyClosings], 4);
  ledger.counters[kCancelledToday] = 3;
  ledger.something_today = true;
  Enter(ledger, Fields("9", {"Z", "P"}), Digits());
  EXPECT_EQ(ledger.counters[kDailyClosings], 5);
  EXPECT_EQ(ledger.counters[kCancelledToday], 0);
  EXPECT_FALSE(ledger.something_today);
}

TEST(Ledger, WhatThePrinterSaysOfAnOpenDocumentIsBelieved) {
  Ledger ledger;
  EnterWords(ledger, {0x0080, 0x1600});
  EXPECT_EQ(ledger.open, true);
  EXPECT_FALSE(ledger.lines) << "joined in its middle";
  EnterWords(ledger, {0x0080, 0x0600});
  EXPECT_EQ(ledger.open, false);
}

TEST(Ledger, ATotalThatDiffersStaysForWhoeverComparesIt) {
  Ledger ledger;
  Enter(ledger, Ticket(), Digits());
  Enter(ledger, TicketLine("00001000", "000010000"), Digits());
  EnterSubtotal(ledger, {.lines = 1, .total = 10100});
  EXPECT_EQ(ledger.total->cents, 10000);
  EnterSubtotal(ledger, {.lines = 1, .total = 10000, .net = 8264});
  EXPECT_EQ(ledger.net, 8264);
}

struct CompareRow {
  const char* sentence;
  std::string command;
  Ledger before;
  Books books;
  Finding finding;
};

Counters Numbered(std::size_t place, std::int64_t number) {
  Counters counters;
  counters.fill(0);
  counters[place] = number;
  return counters;
}

Ledger Selling(std::int64_t lines, std::int64_t cents, std::int64_t slack = 0) {
  Ledger ledger;
  ledger.open = true;
  ledger.letter = 'B';
  ledger.lines = lines;
  ledger.paid = ledger.perceptions = 0;
  ledger.total = Amount{cents, slack};
  return ledger;
}

Ledger Idle() {
  Ledger ledger;
  ledger.open = false;
  return ledger;
}

Ledger SomethingToday() {
  auto ledger = Idle();
  ledger.something_today = true;
  return ledger;
}

Ledger Counting(Ledger ledger, std::size_t place, std::int64_t number) {
  ledger.counters[place] = number;
  return ledger;
}

Books Totals(const Subtotal& subtotal) {
  return {.open = true, .subtotal = subtotal};
}

const auto kLine = TicketLine("00001000", "000010000");
const auto kPayment = Fields("D", {"Efectivo", "00000005000", "T"});
const auto kDiscount = Fields("D", {"Socio", "00000001000", "D"});
const auto kCancel = Fields("D", {"\x7F", "\x7F", "C"});
const auto kClosing = Fields("e", {"T", "B", "\x7F"});
const auto kNonFiscalEnd = Fields("J", {});
const auto kNote = Fields("e", {"E", "R", "\x7F"});
const auto kDay = Fields("9", {"Z", "P"});
const auto kHeader = Fields("]", {"11", "Gracias   "});
const auto kClock = Fields("X", {"261121", "103000"});
const auto kSheet = Fields("\\", {"D", "P", "T", "T"});
const auto kNextSheet = Fields("\\", {"D", "P", "T", "O"});
const auto kPerception = Fields("f", {"IIBB", "O", "0000000150", "0000"});

const Books kOpen{.open = true};
const Books kNoTotal{.open = true, .refused = true};
const Books kShut{};
Books Shut(std::size_t place, std::int64_t number, std::optional<bool> day_empty = {}) {
  return {.counters = Numbered(place, number), .day_empty = day_empty};
}
Books Clock(std::string_view date, std::string_view time, double passed) {
  return {.date = date, .time = time, .passed = passed};
}

const CompareRow kFindings[] = {
    {"opened", Ticket(), Idle(), kOpen, kDone},
    {"not opened", Ticket(), Idle(), kShut, kNotDone},
    {"it was open before", Ticket(), Selling(1, 0), kOpen, kNotDone},
    {"nothing was heard before, and it is new", Ticket(), {}, Totals({.lines = 0}), kDone},
    {"nothing was heard before, and it has lines", Ticket(), {}, Totals({.lines = 2}), kNotDone},
    {"nothing was heard before, and it has no subtotal", Ticket(), {}, kOpen, kAbsent},
    {"a non-fiscal one never has", Fields("H", {}), {}, kOpen, kDone},
    {"one line more", kLine, Selling(2, 0), Totals({.lines = 3}), kDone},
    {"as many lines", kLine, Selling(2, 0), Totals({.lines = 2}), kNotDone},
    {"two lines more", kLine, Selling(2, 0), Totals({.lines = 4}), kDisagree},
    {"the lines were not known", kLine, {}, Totals({.lines = 3}), kAbsent},
    {"there is no subtotal", kLine, Selling(2, 0), kNoTotal, kAbsent},
    {"paid", kPayment, Selling(1, 10000), Totals({.lines = 1, .paid = 5000}), kDone},
    {"not paid", kPayment, Selling(1, 10000), Totals({.lines = 1}), kNotDone},
    {"paid what is no amount", Fields("D", {"Efectivo", "x", "T"}), Selling(1, 10000),
     Totals({.lines = 1, .paid = 5000}), kAbsent},
    {"no subtotal shows the payment", kPayment, Selling(1, 0), kOpen, kAbsent},
    {"perceived", kPerception, Selling(1, 10000), Totals({.perceptions = 150}), kDone},
    {"not perceived", kPerception, Selling(1, 10000), Totals({}), kNotDone},
    {"no subtotal shows it", kPerception, Selling(1, 0), kOpen, kAbsent},
    {"no subtotal shows the discount", kDiscount, Selling(1, 0), kOpen, kAbsent},
    {"the total was not known", kDiscount, {}, Totals({.total = 9000}), kAbsent},
    {"a discount that is none", Fields("D", {"Socio", "x", "D"}), Selling(1, 10000),
     Totals({.total = 9000}), kAbsent},
    {"less", kDiscount, Selling(1, 10000), Totals({.lines = 1, .total = 9000}), kDone},
    {"not less", kDiscount, Selling(1, 10000), Totals({.lines = 1, .total = 10000}), kNotDone},
    {"so rough a sum that it may be both", kDiscount, Selling(1, 10000, 600),
     Totals({.lines = 1, .total = 9500}), kDisagree},
    {"closed, and none was cancelled today", kClosing, Selling(1, 10000), Shut(3, 8), kDone},
    {"closed or cancelled: nobody knows of the count", kClosing, Selling(1, 10000), kShut, kAbsent},
    {"closed or cancelled: a cancelled one spends its number too",
     kClosing,
     Counting(Selling(1, 0), 3, 7),
     {.open = false, .counters = Counters{0, 0, 0, 8, 0, 1, 0, 0, 0, 0, 0}},
     kAbsent},
    {"a non-fiscal one is never cancelled", kNonFiscalEnd, Selling(0, 0), kShut, kDone},
    {"still open", kClosing, Selling(1, 10000), kOpen, kNotDone},
    {"closed, and the number is the next", kClosing, Counting(Selling(1, 0), 3, 7), Shut(3, 8),
     kDone},
    {"closed, and the number is not", kClosing, Counting(Selling(1, 0), 3, 7), Shut(3, 7),
     kDisagree},
    {"it was cancelled", kClosing, Counting(Selling(1, 0), kCancelledToday, 0),
     Shut(kCancelledToday, 1), kDisagree},
    {"no counter to compare", kClosing, Counting(Selling(1, 0), 3, 7), kShut, kAbsent},
    {"no kind that is counted", Fields("e", {"\x7F"}), Counting(Selling(1, 0), 3, 7), Shut(3, 7),
     kDone},
    {"a delivery note has no number", kNote, Counting(Selling(1, 0), kCancelledToday, 0),
     Shut(3, 0), kDone},
    {"there was nothing to close", kClosing, Idle(), kShut, kNotDone},
    {"nobody knows whether there was", kClosing, {}, kShut, kAbsent},
    {"cancelled", kCancel, Selling(1, 0), kShut, kDone},
    {"not cancelled", kCancel, Selling(1, 0), kOpen, kNotDone},
    {"closed instead", kCancel, Counting(Selling(1, 0), kCancelledToday, 0),
     Shut(kCancelledToday, 0), kDisagree},
    {"one closing more", kDay, Counting(Idle(), kDailyClosings, 4), Shut(kDailyClosings, 5), kDone},
    {"no closing more", kDay, Counting(Idle(), kDailyClosings, 4), Shut(kDailyClosings, 4),
     kNotDone},
    {"the day still has something", kDay, Idle(), Shut(kDailyClosings, 4, false), kNotDone},
    {"the day has nothing and may have had nothing", kDay, Idle(), Shut(kDailyClosings, 4, true),
     kAbsent},
    {"the day has nothing and had something", kDay, SomethingToday(), Shut(kDailyClosings, 4, true),
     kDone},
    {"something was cancelled since", kDay, SomethingToday(), Shut(kCancelledToday, 1, true),
     kNotDone},
    {"something without a fiscal number was printed since", kDay, SomethingToday(),
     Shut(kNonFiscalToday, 1, true), kNotDone},
    {"the counters cannot be read", kDay, SomethingToday(), {.day_empty = true}, kAbsent},
    {"the day cannot be read", kDay, SomethingToday(), Shut(kDailyClosings, 4), kAbsent},
    {"the line cannot be asked for", kHeader, {}, {.refused = true}, kAbsent},
    {"the line was emptied", Fields("]", {"11", "\x7F"}), {}, {.text = "   "}, kDone},
    {"and shows the mark of that", Fields("]", {"11", "  "}), {}, {.text = "\x7F"}, kDone},
    {"the line reads so", kHeader, {}, {.text = "Gracias"}, kDone},
    {"the line reads otherwise", kHeader, {}, {.text = "Hola"}, kNotDone},
    {"the clock is right", kClock, {}, Clock("261121", "103003", 4), kDone},
    {"the clock is right, ten minutes later", kClock, {}, Clock("261121", "104000", 600), kDone},
    {"the command was under way for a while", kClock, {}, Clock("261121", "103952", 600), kDone},
    {"the clock is slow still, and has come as far meanwhile",
     kClock,
     {},
     Clock("261121", "103500", 600),
     kNotDone},
    {"the clock is not", kClock, {}, Clock("261121", "093003", 4), kNotDone},
    {"the clock was set by a call long over", kClock, {}, Clock("261121", "103003", -1), kAbsent},
    {"the clock is far ahead", kClock, {}, Clock("261121", "113003", 4), kNotDone},
    {"the clock has no date", kClock, {}, {.time = "103003"}, kAbsent},
    {"the clock has no time", kClock, {}, {.date = "261121"}, kAbsent},
    {"it was set to nothing", "X", {}, Clock("261121", "103003", 4), kAbsent},
    {"the sheet of a document that is over", kSheet, Selling(1, 0), {.refused = true}, kDisagree},
    {"neither a subtotal nor a refusal", kSheet, Selling(1, 0), kOpen, kAbsent},
    {"on the next sheet", kNextSheet, Selling(1, 0), Totals({.lines = 1}), kDone},
    {"not yet on it", kNextSheet, Selling(1, 0), kNoTotal, kNotDone},
    {"between two sheets", kSheet, Selling(1, 0), kNoTotal, kDone},
    {"on a sheet", kSheet, Selling(1, 0), Totals({.lines = 1}), kNotDone},
    {"no book shows a text", Fields("A", {"Oferta"}), Selling(1, 0), Totals({.lines = 1}), kAbsent},
};

TEST(Compare, TheBooksTellWhetherACommandWasCarriedOut) {
  for (const auto& row : kFindings) {
    SCOPED_TRACE(row.sentence);
    EXPECT_EQ(Compare(row.before, row.command, Digits(), row.books), row.finding);
  }
}

TEST(Ledger, ACancelledDocumentSpendsANumberThatNobodyTells) {
  auto ledger = Counting(Counting(Selling(1, 0), 3, 7), kCancelledToday, 1);
  ledger.counters[kDailyClosings] = 4;
  Enter(ledger, kCancel, Digits());
  EXPECT_FALSE(ledger.counters[3]);
  EXPECT_EQ(ledger.counters[kCancelledToday], 2);
  EXPECT_EQ(ledger.counters[kDailyClosings], 4);
}

TEST(Ledger, AnAmountThatIsNoneIsAddedToNothing) {
  auto ledger = Selling(1, 10000);
  Enter(ledger, Fields("D", {"Efectivo", "x", "T"}), Digits());
  EXPECT_FALSE(ledger.paid);
  ledger.letter = 'A';
  ledger.net = 10000;  // and of its tax nobody told
  Enter(ledger, Discount("1000"), Digits());
  EXPECT_FALSE(ledger.total);
}

TEST(Ledger, NumbersThatThePrinterDoesNotGiveAreNotCounted) {
  Ledger ledger;
  for (const auto& command : {Fields("J", {"T"}), kNote, kLine}) EnterNumber(ledger, command, "7");
  EnterNumber(ledger, kClosing, "123456789012345678");
  EXPECT_EQ(ledger.counters, Counters{});
}

struct BlurRow {
  const char* sentence;
  std::string command;
  bool open, lines, paid, perceptions, total;  // what is still known
};

const BlurRow kBlurred[] = {
    {"a line", kLine, true, false, true, true, false},
    {"a discount", kDiscount, true, true, true, true, false},
    {"a perception", kPerception, true, true, true, false, false},
    {"a payment", kPayment, true, true, false, true, true},
    {"a sheet", kSheet, true, true, true, true, true},
    {"an opening", Ticket(), false, false, false, false, false},
    {"a cancelling", kCancel, false, false, false, false, false},
    {"a closing", kClosing, false, false, false, false, false},
    {"a day", kDay, false, false, false, false, false},
};

// Of the counters: closings of the day, tickets, invoices B, cancelled, not fiscal.
struct BlurredCountersRow {
  const char* sentence;
  std::string command;
  bool closings, tickets, invoices, cancelled, others;  // what is still known
};

const BlurredCountersRow kBlurredCounters[] = {
    {"a line", kLine, true, true, true, true, true},
    {"an opening", Ticket(), true, true, true, true, true},
    {"a cancelling", kCancel, true, false, false, false, true},
    {"a closing", kClosing, true, true, false, true, true},
    {"a closing of what has no counter", kNote, true, true, true, true, true},
    {"a closing of what is not fiscal", "J\x1CT", true, true, true, true, false},
    {"a day", kDay, false, true, true, false, false},
};

TEST(Ledger, WhatADoubtDoesNotMoveIsStillCounted) {
  constexpr std::size_t kInvoicesB = 3;
  for (const auto& row : kBlurredCounters) {
    SCOPED_TRACE(row.sentence);
    auto ledger = Selling(2, 10000);
    for (auto& counter : ledger.counters) counter = 3;
    Blur(ledger, row.command);
    EXPECT_EQ(ledger.counters[kDailyClosings].has_value(), row.closings);
    EXPECT_EQ(ledger.counters[kTickets].has_value(), row.tickets);
    EXPECT_EQ(ledger.counters[kInvoicesB].has_value(), row.invoices);
    EXPECT_EQ(ledger.counters[kCancelledToday].has_value(), row.cancelled);
    EXPECT_EQ(ledger.counters[kNonFiscalToday].has_value(), row.others);
  }
}

TEST(Ledger, WhatNobodyKnowsIsNoBaseline) {
  for (const auto& row : kBlurred) {
    SCOPED_TRACE(row.sentence);
    auto ledger = Selling(2, 10000);
    Blur(ledger, row.command);
    EXPECT_EQ(ledger.open.has_value(), row.open);
    EXPECT_EQ(ledger.lines.has_value(), row.lines);
    EXPECT_EQ(ledger.paid.has_value(), row.paid);
    EXPECT_EQ(ledger.perceptions.has_value(), row.perceptions);
    EXPECT_EQ(ledger.total.has_value(), row.total);
  }
}

TEST(ASheet, IsTurnedByEitherStepThatWasDone) {
  for (const auto& step : {kSheet, kNextSheet}) {
    EXPECT_TRUE(IsTurnedSheet(step, Outcome::kDone));
    EXPECT_FALSE(IsTurnedSheet(step, Outcome::kNotDone));
  }
  EXPECT_FALSE(IsTurnedSheet(Ticket(), Outcome::kDone));
}

}  // namespace
}  // namespace kestra
