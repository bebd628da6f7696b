#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "state/causes.hpp"
#include "state/certainty.hpp"

namespace kestra {

// A record is a line of text: its kind, the number of the intent that it is about, date and time, what its
// kind tells as name=value, and the checksum of all that, with a tab between each two. Bytes that a line
// cannot hold are written <1c>.

enum class RecordKind : std::uint8_t {
  kBeginning,  // of the file: whose it is, and what was known then
  kIntent,
  kResult,
  kBooks,  // between commands: the printer's counters were asked for, and told what was not known
  kForgotten,
  kDayClosed,  // the file's last one
  kGap,        // in a record's place: records are missing from here on
};

struct JournalRecord {
  RecordKind kind = RecordKind::kBeginning;
  std::int64_t number = 0;
  std::string moment;
  std::string printer;
  std::string call;
  std::string command;
  std::vector<std::string> accepted;
  bool has_book = false;
  std::int64_t outcome = 0;
  std::int64_t cause = 0;
  std::vector<std::string> answer;
  Ledger ledger;  // before an intent, after its result
};

// The line with its end.
std::string TextOf(const JournalRecord& record);

// The record of a line without its end; nothing when its checksum or anything else in it is wrong.
std::optional<JournalRecord> RecordOf(std::string_view line);

// What a journal comes to.
struct JournalReading {
  bool begun = false;      // it has its first record
  bool is_journal = true;  // else: what is there is not ours to write in
  std::string printer;
  std::int64_t newest = 0;            // intent's number
  std::optional<JournalRecord> open;  // the newest intent when nothing tells what became of it
  // That intent with its outcome, when it was not done and others of its call were.
  std::optional<JournalRecord> in_part;
  Ledger ledger;
  std::size_t last = 0;    // where the last record that counts begins
  std::size_t length = 0;  // and up to its end
};
JournalReading ReadJournal(std::string_view text);

}  // namespace kestra
