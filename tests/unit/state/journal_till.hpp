#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "state/journal.hpp"
#include "state/journal_record.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra::unit {

inline constexpr const char* kFile = "diario.txt";
inline constexpr IntentKind kItem{.opens = false, .has_book = true};
inline constexpr IntentKind kOpening{.opens = true, .has_book = true};
inline constexpr IntentKind kTextLine{.opens = false, .has_book = false};
inline constexpr Verdict kWasDone{Outcome::kDone, Cause::kNone};

// A program with its library, on a disk that outlives it.
class Till {
 public:
  explicit Till(std::shared_ptr<FakeDisk> disk) {
    world.GetJournalFile().UseDisk(std::move(disk));
    library.state.LogComandos = 1;
    library.certainty.settings.Diario = kFile;
  }

  void Start(const char* printer = "COM1") { OpenJournal(library, printer); }
  Cause Intend(const std::string& command, IntentKind kind = kItem) {
    return JournalIntent(library, {"EP_" + command, command, {}, library.certainty.ledger}, kind);
  }
  std::string Pending() const {
    const auto& pending = library.certainty.pending;
    return pending ? pending->command : std::string();
  }
  Cause ReportedCause() const { return library.certainty.report.cause; }
  // The log's lines without their dates.
  std::vector<std::string> Log() {
    auto lines = TextsOf(world.GetJournal(), Happening::kLog);
    for (auto& line : lines) line = line.substr(line.find(']') + 1);
    return lines;
  }

  FakePlatform world;
  Library library{world};
};

class JournalOfATill : public testing::Test {
 protected:
  std::unique_ptr<Till> Program() { return std::make_unique<Till>(disk_); }

  std::unique_ptr<Till> Started() {
    auto till = Program();
    till->Start();
    return till;
  }

  // A program that has died, and the next one; the disk has what it had.
  void Restart(std::unique_ptr<Till>& till) {
    till.reset();
    till = Started();
  }

  std::string& Text() { return disk_->files[kFile]; }

  std::shared_ptr<FakeDisk> disk_ = std::make_shared<FakeDisk>();
};

}  // namespace kestra::unit
