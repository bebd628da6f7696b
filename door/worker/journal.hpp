// The library's journal as a witness of what was sent to the printer since a moment, and of what became of it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace puerta {

// A command that was about to be sent.
struct Sent {
  std::int64_t number = 0;
  std::string command;  // its bytes
  int outcome = 0;      // a number of KestraDesenlace; 0: nothing tells
  std::vector<std::string> answer;

  bool IsDone() const { return outcome == 1; }
  bool MayBeDone() const { return outcome == 0 || outcome == 1 || outcome == 4 || outcome == 5; }
};

struct Evidence {
  bool whole = false;  // no record of that time is missing
  std::vector<Sent> sent;
};

// What the files tell, the oldest first, of commands with a number above `since`.
Evidence ReadEvidence(std::span<const std::string> files, std::int64_t since);

// The newest number, out of the end of a file; -1 when it is no journal.
std::int64_t NewestNumber(std::string_view text);

// The same for the journal of that name, with the one before it when a day was closed since.
Evidence EvidenceOf(const std::string& journal, std::int64_t since);
std::int64_t NewestNumberOf(const std::string& journal);

}  // namespace puerta
