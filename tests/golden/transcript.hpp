#pragma once

#include <string>

#include "fakes/journal.hpp"

namespace kestra::golden {

// What of an event is shown, as a case asks for it.
struct Detail {
  bool sequence = false;  // sequence numbers and checksums as they are, not as {seq}
  bool date = false;      // log lines with their date
  bool rows = false;      // every row of a status report, not just the lit ones
};

// An event as lines of a case, each ended by a line feed.
std::string Describe(const Event& event, const Detail& detail);

// One line of output: its mark, the text, and a last blank made visible.
std::string OutputLine(const std::string& text);

}  // namespace kestra::golden
