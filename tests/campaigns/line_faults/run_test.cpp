#include "campaigns/line_faults/run.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "campaigns/line_faults/judge.hpp"

namespace kestra::line_faults {
namespace {

const CanonicalDocument& Document(std::string_view name) {
  const auto documents = CanonicalDocuments();
  return *std::find_if(documents.begin(), documents.end(),
                       [name](const CanonicalDocument& document) { return document.name == name; });
}

RunReport Good(const CanonicalDocument& document) {
  return Play(document, {}, OperatorHabit::kNever);
}

TEST(Run, EveryDocumentGoesThroughOnAGoodLine) {
  for (const CanonicalDocument& document : CanonicalDocuments()) {
    SCOPED_TRACE(document.name);
    const RunReport run = Good(document);
    const bool refused = document.name == "A closing that is refused";
    ASSERT_EQ(run.calls.size(), document.calls.size());
    for (const CallReport& call : run.calls) EXPECT_EQ(call.result, refused ? 1 : 0);
    EXPECT_TRUE(run.foreign.empty());
    EXPECT_FALSE(run.damaged_answer);
    EXPECT_FALSE(run.bad_checksum);
  }
}

TEST(Run, EachCommandIsCreditedToItsCall) {
  const RunReport run = Good(Document("TQ ticket"));
  EXPECT_EQ(run.calls[0].done, Deeds{"@\x1C"
                                     "C"});
  ASSERT_EQ(run.calls[1].done.size(), 2U) << "the extra line goes before the item";
  EXPECT_EQ(run.calls[1].done[0].front(), 'A');
  EXPECT_EQ(run.calls[1].done[1].front(), 'B');
  EXPECT_EQ(run.calls.back().buffers, std::vector<std::string>{"00000001"});
}

// The bytes of the first answer to the second call of the ticket, from the host's side.
TEST(Run, ALostAnswerLeavesTheHostInDoubt) {
  const CanonicalDocument& ticket = Document("TQ ticket, voided and cancelled");
  const RunReport good = Good(ticket);
  const ByteFault end_byte{Direction::kToHost, 3 + 5 + 4, FaultKind::kDrop};
  const RunReport run = Play(ticket, {&end_byte, 1}, OperatorHabit::kNever);
  ASSERT_EQ(run.calls.size(), 1U);
  EXPECT_EQ(run.calls[0].result, 1);
  EXPECT_EQ(run.calls[0].done, good.calls[0].done);
  EXPECT_EQ(Judge(run, good), Verdict::kAmbiguous);
}

// It adds nothing to a sum of bytes, and a host reads a number that is none.
TEST(Run, AZeroByteInAnAnswerIsDamageThatNoChecksumShows) {
  const CanonicalDocument& ticket = Document("TQ ticket");
  const RunReport good = Good(ticket);
  const std::size_t last_digit = good.to_host - 1 - 5;
  const ByteFault zero{Direction::kToHost, last_digit, FaultKind::kInsert, 0};
  const RunReport run = Play(ticket, {&zero, 1}, OperatorHabit::kNever);
  EXPECT_EQ(Judge(run, good), Verdict::kMisread);
  EXPECT_TRUE(run.damaged_answer);
  EXPECT_FALSE(run.bad_checksum);
  EXPECT_TRUE(run.visible_damage) << "no answer has such a byte";
}

// One digit of a number up, another one down.
TEST(Run, TwoFaultsInAnAnswerMakeUpForEachOtherAndNobodyCanSeeIt) {
  for (const auto mode : {Mode::kBase, Mode::kSafe}) {
    const CanonicalDocument& ticket = Document("TQ ticket");
    const RunReport good = Play(ticket, {}, OperatorHabit::kNever, mode);
    ASSERT_EQ(good.calls.back().buffers, std::vector<std::string>{"00000001"});
    const std::size_t last_digit = good.to_host - 1 - 5;
    const std::array faults{ByteFault{Direction::kToHost, last_digit, FaultKind::kFlip, 0x01},
                            ByteFault{Direction::kToHost, last_digit - 1, FaultKind::kFlip, 0x01}};
    const RunReport run = Play(ticket, faults, OperatorHabit::kNever, mode);
    EXPECT_EQ(run.calls.back().buffers, std::vector<std::string>{"00000010"});
    EXPECT_TRUE(run.calls.back().disguised);
    EXPECT_FALSE(run.visible_damage);
    EXPECT_EQ(Judge(run, good), Verdict::kDisguised);
  }
}

TEST(Run, AnAnswerWithAnotherNumberMakesTheDriverSendAgain) {
  const CanonicalDocument& page = Document("Non-fiscal page");
  const RunReport good = Good(page);
  const ByteFault number{Direction::kToHost, good.to_host - 5 - 5 - 4 - 2, FaultKind::kFlip, 0x10};
  const RunReport run = Play(page, {&number, 1}, OperatorHabit::kNever);
  EXPECT_EQ(run.calls.back().result, 0);
  EXPECT_EQ(run.calls.back().done.size(), 2U) << "the drawer opened twice";
  EXPECT_EQ(Judge(run, good), Verdict::kTwice);
}

TEST(Run, ALateCommandIsCarriedOutWhenTheHostHasGivenUp) {
  const CanonicalDocument& page = Document("Non-fiscal page");
  const RunReport good = Good(page);
  const ByteFault late{Direction::kToPrinter, 0, FaultKind::kDelay};
  const RunReport run = Play(page, {&late, 1}, OperatorHabit::kNever);
  EXPECT_EQ(run.calls[0].result, 1);
  EXPECT_EQ(run.calls[0].done, good.calls[0].done);
  EXPECT_EQ(Judge(run, good), Verdict::kAmbiguous);
}

TEST(Run, AnOperatorWhoInsistsGetsItTwice) {
  const CanonicalDocument& page = Document("Non-fiscal page");
  const RunReport good = Good(page);
  const ByteFault end_byte{Direction::kToHost, good.to_host - 5, FaultKind::kDrop};
  const RunReport run = Play(page, {&end_byte, 1}, OperatorHabit::kOnce);
  EXPECT_EQ(run.calls.back().result, 0);
  EXPECT_EQ(Judge(run, good), Verdict::kTwice);
}

}  // namespace
}  // namespace kestra::line_faults
