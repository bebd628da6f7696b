// The journal in the life of a till: what is on the disk, what the next program finds, what goes wrong.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "state/journal.hpp"
#include "state/journal_record.hpp"
#include "state/library.hpp"
#include "unit/state/journal_till.hpp"

namespace kestra::unit {
namespace {

TEST_F(JournalOfATill, WithoutTheKeyNothingIsAskedOfTheDisk) {
  auto till = Program();
  till->library.certainty.settings.Diario.clear();
  till->Start();
  PrepareJournal(till->library);
  EXPECT_EQ(till->Intend("@", kOpening), Cause::kNone);
  JournalResult(till->library, kWasDone);
  JournalForget(till->library);
  CloseJournal(till->library);
  EXPECT_TRUE(disk_->files.empty());
  EXPECT_EQ(till->ReportedCause(), Cause::kNone);
  EXPECT_EQ(till->world.GetTrouble().Calls(Point::kJournal), 0);
}

TEST_F(JournalOfATill, AnIntentIsOnTheDiskBeforeItsResult) {
  auto till = Started();
  EXPECT_EQ(till->Intend("B"), Cause::kNone);
  const auto during = ReadJournal(Text());
  ASSERT_TRUE(during.open);
  EXPECT_EQ(during.open->call, "EP_B");
  EXPECT_EQ(during.open->moment, "2026-11-21 10:30:00");
  EXPECT_EQ(during.printer, "COM1");
  JournalResult(till->library, kWasDone);
  EXPECT_FALSE(ReadJournal(Text()).open);
  EXPECT_EQ(ReadJournal(Text()).length, Text().size());
}

TEST_F(JournalOfATill, WhatWasInFlightIsPendingForTheNextProgram) {
  auto till = Started();
  till->library.certainty.ledger.lines = 4;
  till->library.certainty.ledger.open = true;
  till->Intend("B");
  till->library.certainty.ledger.lines = 5;  // never learnt
  Restart(till);
  EXPECT_EQ(till->Pending(), "B");
  EXPECT_EQ(till->library.certainty.pending->call, "EP_B");
  EXPECT_EQ(till->library.certainty.pending->before.lines, 4);
  EXPECT_EQ(till->library.certainty.ledger.lines, 4);
  EXPECT_EQ(till->Log(), std::vector<std::string>{" - Diario : Pendiente EP_B\r\n"});
  JournalResult(till->library, {Outcome::kNotDone, Cause::kNone});
  Restart(till);
  EXPECT_EQ(till->Pending(), "");
}

TEST_F(JournalOfATill, HowLongAgoItWasSentIsKnownByItsMoment) {
  auto till = Started();
  till->Intend("X");
  for (const auto& [hour, minutes] : {std::pair{11.0, 30.0}, std::pair{10.0, -1.0}}) {
    till.reset();
    till = Program();
    till->world.GetClock().SetTimeOfDay(hour * 3600);
    till->Start();
    const double passed = till->world.GetClock().Elapsed() - till->library.certainty.pending->sent;
    if (minutes < 0) {
      EXPECT_LT(passed, 0) << "the clock on the wall was put back: nobody knows";
    } else {
      EXPECT_NEAR(passed, minutes * 60, 1);
    }
  }
}

TEST_F(JournalOfATill, HowLongAgoItWasSentIsNotKnownByAMomentThatIsNone) {
  auto till = Started();
  CloseJournal(till->library);
  JournalRecord intent{};
  intent.kind = RecordKind::kIntent;
  intent.moment = "ayer";
  intent.command = "X";
  intent.has_book = true;
  Text() += TextOf(intent);
  till->Start();
  ASSERT_EQ(till->Pending(), "X");
  EXPECT_LT(till->world.GetClock().Elapsed(), till->library.certainty.pending->sent);
}

TEST_F(JournalOfATill, WhatAProgramLeftPendingItselfIsToldOnceAndGoesBeforeAnothers) {
  for (const std::string own : {"B", "D"}) {
    *disk_ = {};
    auto till = Started();
    till->Intend("B");
    till->library.certainty.pending = Pending{"EP_" + own, own, {}, {}};
    CloseJournal(till->library);
    till->Start();
    EXPECT_EQ(till->Pending(), own);
    const std::vector<std::string> lost{" - Diario : No se sabe si se hizo EP_B\r\n"};
    EXPECT_EQ(till->Log(), own == "B" ? std::vector<std::string>() : lost);
    JournalResult(till->library, kWasDone);
    EXPECT_EQ(ReadJournal(Text()).open.has_value(), own == "D");
  }
}

TEST_F(JournalOfATill, AResultWithoutADateIsMissedAndTold) {
  auto till = Started();
  till->Intend("B");
  till->world.GetTrouble().Arm(Point::kTimeOfDay, 1, false, Ailment::kFalla);
  JournalResult(till->library, kWasDone);
  EXPECT_EQ(till->ReportedCause(), Cause::kJournalSkipped);
  Restart(till);
  EXPECT_EQ(till->Pending(), "B");
}

TEST_F(JournalOfATill, TheLedgerOutlivesTheProgram) {
  auto till = Started();
  till->Intend("B");
  till->library.certainty.ledger.open = true;
  till->library.certainty.ledger.lines = 1;
  JournalResult(till->library, kWasDone);
  Restart(till);
  EXPECT_EQ(till->library.certainty.ledger.open, true);
  EXPECT_EQ(till->library.certainty.ledger.lines, 1);
}

TEST_F(JournalOfATill, WhatNoBookShowsIsToldInTheLogAlone) {
  auto till = Started();
  till->Intend("A", kTextLine);
  Restart(till);
  EXPECT_EQ(till->Pending(), "");
  EXPECT_EQ(till->Log(), std::vector<std::string>{" - Diario : No se sabe si se hizo EP_A\r\n"});
}

TEST_F(JournalOfATill, WhatIsDroppedByHandIsNotPending) {
  auto till = Started();
  till->Intend("B");
  JournalForget(till->library);
  Restart(till);
  EXPECT_EQ(till->Pending(), "");
  EXPECT_NE(Text().find("olvido\t1\t"), std::string::npos);
}

TEST_F(JournalOfATill, CountersThatWereAskedForAreKnownToTheNextProgram) {
  auto till = Started();
  till->library.certainty.ledger.counters[5] = 1;
  JournalBooks(till->library);
  Restart(till);
  EXPECT_EQ(till->library.certainty.ledger.counters[5], 1);
  EXPECT_NE(Text().find("\nlibros\t0\t"), std::string::npos);
}

// Its own result has what the books showed meanwhile.
TEST_F(JournalOfATill, NothingStandsBetweenAnIntentAndItsResult) {
  auto till = Started();
  till->Intend("B");
  JournalBooks(till->library);
  EXPECT_EQ(Text().find("libros"), std::string::npos);
  Restart(till);
  JournalBooks(till->library);
  EXPECT_EQ(till->Pending(), "B");
  EXPECT_EQ(Text().find("libros"), std::string::npos);
}

TEST_F(JournalOfATill, CountersAreKeptWhereThereIsAFileOnly) {
  auto till = Started();
  CloseJournal(till->library);
  const std::string before = Text();
  JournalBooks(till->library);
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(till->ReportedCause(), Cause::kNone);
}

// Of a call that another program left in part nothing is taken over what this one knows of its own.
TEST_F(JournalOfATill, WhatAProgramKnowsOfItsOwnGoesBeforeAnothersParts) {
  auto till = Started();
  JournalIntent(till->library, {"EP_AB", "B", {"A"}, {}}, kItem);
  JournalResult(till->library, {Outcome::kNotSent, Cause::kPortMissing});
  auto& certainty = till->library.certainty;
  certainty.pending = Pending{"EP_D", "D", {}, {}};
  CloseJournal(till->library);
  till->Start();
  EXPECT_FALSE(certainty.settled);
  certainty.pending.reset();
  certainty.settled = Settled{"EP_D", {}, "D", kWasDone, {}};
  CloseJournal(till->library);
  till->Start();
  EXPECT_EQ(certainty.settled->call, "EP_D");
}

TEST_F(JournalOfATill, CountersBetweenAPartOfACallAndItsRetryForgetNothing) {
  auto till = Started();
  JournalIntent(till->library, {"EP_AB", "B", {"A"}, {}}, kItem);
  JournalResult(till->library, {Outcome::kNotSent, Cause::kPortMissing});
  JournalBooks(till->library);
  Restart(till);
  EXPECT_TRUE(till->library.certainty.settled);
}

TEST_F(JournalOfATill, WhatWasDoneOfACallIsKnownToTheNextProgram) {
  struct Row {
    Outcome outcome;
    std::vector<std::string> accepted;
    bool kept;
  };
  for (const auto& row : {
           Row{Outcome::kNotSent, {"A"}, true},
           Row{Outcome::kNotDone, {"A"}, true},
           Row{Outcome::kRefused, {"A"}, true},
           Row{Outcome::kNotSent, {}, false},
           Row{Outcome::kDone, {"A"}, false},
           Row{Outcome::kUnknown, {"A"}, false},
       }) {
    *disk_ = {};
    auto till = Started();
    JournalIntent(till->library, {"EP_AB", "B", row.accepted, {}}, kItem);
    JournalResult(till->library, {row.outcome, Cause::kPortMissing});
    Restart(till);
    EXPECT_EQ(till->Pending(), "");
    const auto settled = till->library.certainty.settled;
    ASSERT_EQ(settled.has_value(), row.kept);
    if (!row.kept) continue;
    EXPECT_EQ(settled->call, "EP_AB");
    EXPECT_EQ(settled->done, row.accepted);
    EXPECT_EQ(settled->command, "B");
    EXPECT_EQ(settled->verdict.outcome, row.outcome);
    EXPECT_EQ(settled->verdict.cause, Cause::kPortMissing);
    till->Intend("D");
    JournalResult(till->library, kWasDone);
    Restart(till);
    EXPECT_FALSE(till->library.certainty.settled) << "another command went out since";
  }
}

// The power goes while the last record is on its way to the disk.
TEST_F(JournalOfATill, CutAtEveryByteOfItsLastRecordItTellsTheTruth) {
  auto till = Started();
  till->Intend("B");
  JournalResult(till->library, kWasDone);
  const std::string settled = Text();
  till->Intend("D");
  const std::string intended = Text();
  JournalResult(till->library, kWasDone);
  const std::string done = Text();
  till.reset();
  for (std::size_t size = settled.size(); size <= done.size(); ++size) {
    Text() = done.substr(0, size);
    till = Started();
    const bool in_flight = size >= intended.size() && size < done.size();
    EXPECT_EQ(till->Pending(), in_flight ? "D" : "") << size;
    // And it goes on behind what counts.
    EXPECT_EQ(till->Intend("E"), Cause::kNone);
    till.reset();
    ASSERT_TRUE(ReadJournal(Text()).open) << size;
    EXPECT_EQ(ReadJournal(Text()).open->command, "E") << size;
    EXPECT_EQ(ReadJournal(Text()).length, Text().size()) << size;
  }
}

struct BlockedRow {
  const char* story;
  void (*block)(FakeDisk&);
  Cause cause;
};

const std::vector<BlockedRow> kBlocked{
    {"disk full", [](FakeDisk& disk) { disk.room = 0; }, Cause::kJournalUnwritable},
    {"a few bytes left", [](FakeDisk& disk) { disk.room = 20; }, Cause::kJournalUnwritable},
    {"read-only folder", [](FakeDisk& disk) { disk.read_only = true; }, Cause::kJournalUnwritable},
    {"another program's", [](FakeDisk& disk) { disk.held = {kFile}; }, Cause::kJournalBusy},
    {"another printer's",
     [](FakeDisk& disk) {
       JournalRecord record;
       record.printer = "COM7";
       disk.files[kFile] = TextOf(record);
     },
     Cause::kJournalForeign},
    {"no journal at all", [](FakeDisk& disk) { disk.files[kFile] = "ventas\n"; },
     Cause::kJournalDamaged},
};

TEST_F(JournalOfATill, WithoutAJournalOpeningsAreRefusedAndTheRestGoesOn) {
  for (const auto& row : kBlocked) {
    *disk_ = {};
    row.block(*disk_);
    const auto files = disk_->files;
    auto till = Started();
    EXPECT_EQ(till->ReportedCause(), row.cause) << row.story;
    EXPECT_EQ(till->Log().size(), 1u) << row.story;
    PrepareJournal(till->library);
    EXPECT_EQ(till->Intend("@", kOpening), row.cause) << row.story;
    till->library.certainty.report = {};
    EXPECT_EQ(till->Intend("B"), Cause::kNone) << row.story;
    EXPECT_EQ(till->ReportedCause(), Cause::kJournalSkipped) << row.story;
    till->library.certainty.settings.DiarioObligatorio = 0;
    EXPECT_EQ(till->Intend("@", kOpening), Cause::kNone) << row.story;
    EXPECT_EQ(till->Log().size(), 1u) << "told once: " << row.story;
    if (files.empty()) continue;
    EXPECT_EQ(disk_->files, files) << row.story;
  }
}

TEST_F(JournalOfATill, ItIsKeptAgainAsSoonAsItCanBe) {
  for (const auto& row : kBlocked) {
    *disk_ = {};
    row.block(*disk_);
    auto till = Started();
    *disk_ = {};
    PrepareJournal(till->library);
    EXPECT_EQ(till->Intend("@", kOpening), Cause::kNone) << row.story;
    EXPECT_TRUE(ReadJournal(Text()).open) << row.story;
  }
}

TEST_F(JournalOfATill, AResultThatFoundTheDiskFullGoesBeforeTheNextRecord) {
  for (std::size_t room = 0; room < 60; ++room) {
    *disk_ = {};
    auto till = Started();
    till->Intend("B");
    disk_->room = room;
    till->library.certainty.ledger.lines = 1;
    JournalResult(till->library, kWasDone);
    EXPECT_EQ(till->ReportedCause(), Cause::kJournalSkipped);
    EXPECT_EQ(till->Intend("@", kOpening), Cause::kJournalUnwritable);
    disk_->room = 100000;
    EXPECT_EQ(till->Intend("D"), Cause::kNone);
    const auto reading = ReadJournal(Text());
    ASSERT_TRUE(reading.open);
    EXPECT_EQ(reading.open->command, "D");
    EXPECT_EQ(reading.length, Text().size()) << "nothing torn in between";
    EXPECT_NE(Text().find("resultado\t1\t"), std::string::npos);
  }
}

TEST_F(JournalOfATill, AnOwedResultIsWrittenAtTheEndAtTheLatest) {
  auto till = Started();
  till->Intend("B");
  disk_->room = 5;
  JournalResult(till->library, kWasDone);
  disk_->room = 100000;
  CloseJournal(till->library);
  EXPECT_FALSE(ReadJournal(Text()).open);
}

// Behind the first record, behind a result, behind one that found no room itself: what goes out without its
// intent leaves a journal from which nothing is known, and one that goes on as it should.
TEST_F(JournalOfATill, WhatWentOutWithoutItsIntentLeavesNothingKnown) {
  for (const std::string before : {"", "B", "b"}) {
    *disk_ = {};
    auto till = Program();
    till->library.certainty.ledger.lines = 4;
    till->Start();
    till->library.certainty.ledger.lines = 4;
    if (!before.empty()) till->Intend(before);
    if (before == "b") disk_->room = 0;
    if (!before.empty()) JournalResult(till->library, kWasDone);
    disk_->room = 3;
    const auto size = Text().size();
    till->Intend("B");
    till->Intend("B");
    EXPECT_EQ(Text().size(), size) << before;
    disk_->room = 100000;
    Restart(till);
    EXPECT_EQ(till->Pending(), "") << before;
    EXPECT_EQ(till->library.certainty.ledger.lines, std::nullopt) << before;
    EXPECT_EQ(till->Intend("D"), Cause::kNone);
    EXPECT_EQ(ReadJournal(Text()).open->number, before.empty() ? 1 : 2);
  }
}

TEST_F(JournalOfATill, AProgramThatLivesKeepsWhatItKnowsOverAFullDisk) {
  auto till = Started();
  disk_->room = 0;
  till->Intend("B");
  disk_->room = 100000;
  till->library.certainty.ledger.lines = 5;
  till->Intend("B");
  Restart(till);
  EXPECT_EQ(till->library.certainty.ledger.lines, 5);
}

TEST_F(JournalOfATill, AnOpeningThatWasRefusedLeavesNoIntent) {
  auto till = Started();
  disk_->room = 30;
  EXPECT_EQ(till->Intend("@", kOpening), Cause::kJournalUnwritable);
  till.reset();
  disk_->room = 100000;
  till = Started();
  EXPECT_EQ(till->Pending(), "");
}

TEST_F(JournalOfATill, TwoProgramsDoNotShareOne) {
  auto first = Program();
  auto second = Program();
  first->Start();
  second->Start();
  EXPECT_EQ(first->Intend("@", kOpening), Cause::kNone);
  EXPECT_EQ(second->Intend("@", kOpening), Cause::kJournalBusy);
  CloseJournal(first->library);
  PrepareJournal(second->library);
  EXPECT_EQ(second->Intend("@", kOpening), Cause::kNone);
}

TEST_F(JournalOfATill, WhatWasInFlightIsTakenUpHoweverLateTheJournalCanBeRead) {
  auto hung = Started();
  hung->library.certainty.ledger.lines = 4;
  hung->Intend("B");
  auto till = Started();
  till->library.certainty.ledger.open = true;  // the printer was asked meanwhile
  EXPECT_FALSE(KnowsJournal(till->library));
  EXPECT_EQ(till->Pending(), "");
  hung.reset();
  EXPECT_TRUE(KnowsJournal(till->library));
  EXPECT_EQ(till->Pending(), "B");
  EXPECT_EQ(till->library.certainty.pending->before.lines, 4);
  EXPECT_TRUE(KnowsJournal(till->library));
}

TEST_F(JournalOfATill, AnotherPrinterKnowsNothingOfTheFirst) {
  auto till = Program();
  till->library.certainty.settings.Diario.clear();
  till->Start("COM1");
  till->library.certainty.ledger.open = true;
  till->library.certainty.pending = Pending{"EP_B", "B", {}, {}};
  till->Start("COM1");
  EXPECT_EQ(till->Pending(), "B");
  till->Start("COM2");
  EXPECT_EQ(till->Pending(), "");
  EXPECT_EQ(till->library.certainty.ledger.open, std::nullopt);
}

TEST_F(JournalOfATill, WhatThisProgramLeftPendingIsNotForgottenForTheFile) {
  auto till = Started();
  disk_->room = 0;
  till->Intend("B");
  till->library.certainty.pending = Pending{"EP_B", "B", {}, {}};
  disk_->room = 100000;
  CloseJournal(till->library);
  till->Start();
  EXPECT_EQ(till->Pending(), "B");
}

// The k-th call of the file fails, by a failure, by want of memory, by anything else.
TEST_F(JournalOfATill, SurvivesEveryFailureOfEveryCall) {
  for (const auto ailment : {Ailment::kFalla, Ailment::kMemory, Ailment::kOther}) {
    for (const bool forever : {false, true}) {
      for (int nth = 1; nth <= 12; ++nth) {
        *disk_ = {};
        auto till = Program();
        till->world.GetTrouble().Arm(Point::kJournal, nth, forever, ailment);
        till->Start();
        for (const char* const command : {"@", "B", "9\x1CZ\x1CP", "@"}) {
          PrepareJournal(till->library);
          const bool opens = std::string(command) == "@";
          if (till->Intend(command, opens ? kOpening : kItem) != Cause::kNone) {
            EXPECT_TRUE(opens);
            continue;
          }
          JournalResult(till->library, kWasDone);
        }
        till->Intend("B");
        const bool on_disk = till->library.certainty.journal.unsettled != 0;
        const bool owes = !till->library.certainty.journal.owed.empty();
        till->world.GetTrouble().Disarm();
        Restart(till);
        // A result that never got there leaves its command to be asked for once more.
        EXPECT_EQ(till->Pending().empty(), !on_disk && !owes) << nth << forever;
        EXPECT_TRUE(!on_disk || till->Pending() == "B") << nth << forever;
        EXPECT_EQ(till->Intend("@", kOpening), Cause::kNone) << nth << forever;
      }
    }
  }
}

}  // namespace
}  // namespace kestra::unit
