#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "log/stamp.hpp"

namespace kestra::tool {

// What a line of fiscal.log is for, as its first word says.
enum class LineKind {
  kCommand,    // an operation begins
  kOutput,     // a frame, without its checksum
  kAnswer,     // what arrived until the answer was whole or the time was up
  kDropped,    // what arrived and belonged to no frame
  kBooks,      // what the printer's books say of a frame in doubt
  kPending,    // an operation of before whose end nobody knows
  kForgotten,  // one that was given up
  kJournal,
  kError,
  kOther,
  kDamaged,  // no line of the log: without a stamp
};

// Texts are bytes as the till wrote them, in windows-1252.
struct LogLine {
  std::size_t number = 0;  // in the file
  LineKind kind = LineKind::kOther;
  Stamp stamp{};
  std::string text{};  // behind the first word; of a damaged line and of an error, all
};

// Makes lines of the bytes of a log, however they were cut into pieces. Nothing that a log can hold stops it: lines
// that ran into each other are parted, a frame with line ends in its texts stays whole, what has no stamp is damaged.
class LineReader {
 public:
  void Feed(std::string_view bytes);

  // The file has ended here, or rests: what has arrived is a line.
  void Rest();

  std::optional<LogLine> Next();

 private:
  void TakeLine(std::string_view line);
  void TakeBare(std::string_view line);
  void TakeStamped(const Stamp& stamp, std::string_view text);
  void HandOver();

  std::string unfinished_;  // behind the last line end
  std::size_t number_ = 0;
  std::optional<LogLine> open_;  // the last one, which the next may belong to
  std::deque<LogLine> ready_;
};

}  // namespace kestra::tool
