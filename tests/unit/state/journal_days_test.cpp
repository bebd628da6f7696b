// A journal for each day: what begins a file, and how long the old ones are kept.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "state/journal_days.hpp"
#include "state/journal_record.hpp"
#include "unit/state/journal_till.hpp"

namespace kestra::unit {
namespace {

TEST_F(JournalOfATill, TheDailyClosingBeginsAFileAndKeepsTheOldOne) {
  auto till = Started();
  till->library.certainty.ledger.counters[0] = 8;
  till->Intend("9\x1CZ\x1CP");
  JournalResult(till->library, kWasDone);
  const std::string kept = disk_->files.at("diario.txt-20261121");
  EXPECT_NE(kept.find("\ncierre-de-dia\t1\t"), std::string::npos);
  EXPECT_EQ(ReadJournal(kept).length, kept.size());
  EXPECT_EQ(ReadJournal(Text()).newest, 1) << "numbers go on";
  Restart(till);
  EXPECT_EQ(till->library.certainty.ledger.counters[0], 8);
}

TEST(Moments, AreReadAgainHoweverTheSystemWritesItsTimes) {
  EXPECT_EQ(MomentOf("2026-11-21", 10.5 * 3600 + 7.9), "2026-11-21 10:30:07");
  EXPECT_EQ(MomentOf("2026-11-21", 0), "2026-11-21 00:00:00");
  struct Row {
    const char *from, *to;
    std::optional<double> seconds;
  };
  constexpr const char* kNow = "2026-11-21 10:30:00";
  for (const auto& row : {
           Row{kNow, "2026-11-21 10:30:07", 7},
           Row{"2026-12-31 23:59:58", "2027-01-01 00:00:01", 3},
           Row{kNow, "2026-11-21 09:30:00", -3600},
           Row{kNow, "2026-11-21 10:30:00 a.m.", std::nullopt},
           Row{"10:30:00", kNow, std::nullopt},
           Row{"2026-11-31 10:30:00", kNow, std::nullopt},
           Row{"2026-11-21 24:00:00", kNow, std::nullopt},
           Row{"2026-11-21 10-30:00", kNow, std::nullopt},
           Row{"2026-11-21 1x:30:00", kNow, std::nullopt},
           Row{"", kNow, std::nullopt},
       }) {
    EXPECT_EQ(SecondsBetween(row.from, row.to), row.seconds) << row.from << " " << row.to;
  }
}

TEST_F(JournalOfATill, AClosingThatWasNotDoneBeginsNothing) {
  for (const auto outcome : {Outcome::kRefused, Outcome::kNotDone, Outcome::kUnknown}) {
    auto till = Started();
    till->Intend("9\x1CZ\x1CP");
    JournalResult(till->library, {outcome, Cause::kNone});
    till->Intend("9\x1CX\x1CP");
    JournalResult(till->library, kWasDone);
  }
  EXPECT_EQ(disk_->files.size(), 1u);
}

TEST_F(JournalOfATill, AClosingThatTheNextProgramSettlesBeginsAFileToo) {
  auto till = Started();
  till->Intend("9\x1CZ\x1CP");
  Restart(till);
  JournalResult(till->library, kWasDone);
  EXPECT_EQ(disk_->files.size(), 2u);
}

TEST_F(JournalOfATill, DaysAreKeptAsLongAsTheKeySays) {
  disk_->files["diario.txt-20261021"] = "x";
  disk_->files["diario.txt-20261022"] = "x";
  disk_->files["diario.txt.copia"] = "x";
  auto till = Started();
  for (int n = 0; n < 2; ++n) {
    till->Intend("9\x1CZ\x1CP");
    JournalResult(till->library, kWasDone);
  }
  std::vector<std::string> names;
  for (const auto& [name, text] : disk_->files) names.push_back(name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"diario.txt", "diario.txt-20261022", "diario.txt-20261121",
                                      "diario.txt-20261121-2", "diario.txt.copia"}));
}

TEST_F(JournalOfATill, AClockThatIsFarAheadTakesTheTwoOldestAlongAtMost) {
  for (const bool held : {false, true}) {
    *disk_ = {};
    for (const char* const day : {"1023", "1021", "1022", "1020"}) {
      disk_->files[std::string("diario.txt-2024").append(day)] = "x";
    }
    auto till = Started();
    till->Intend("9\x1CZ\x1CP");
    constexpr int kFirstDeletion = 6;
    if (held) till->world.GetTrouble().Arm(Point::kJournal, kFirstDeletion, false, Ailment::kFalla);
    JournalResult(till->library, kWasDone);
    EXPECT_EQ(disk_->files.size(), 4u) << "with today's, and the one in use";
    EXPECT_EQ(disk_->files.count("diario.txt-20241020"), held ? 1u : 0u);
    EXPECT_EQ(disk_->files.count("diario.txt-20241022"), held ? 0u : 1u);
  }
}

TEST_F(JournalOfATill, WithoutDailyClosingsALargeOneIsKeptAsideAtAStart) {
  auto till = Started();
  till.reset();
  JournalRecord forgotten;
  forgotten.kind = RecordKind::kForgotten;
  const std::string line = TextOf(forgotten);
  while (Text().size() < (std::size_t{1} << 20)) Text() += line;
  till = Started();
  EXPECT_EQ(disk_->files.count("diario.txt-20261121"), 1u);
  EXPECT_LT(Text().size(), 1000u);
}
}  // namespace
}  // namespace kestra::unit
