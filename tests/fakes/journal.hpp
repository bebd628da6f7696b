#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kestra {

// One row of a status report, kept beyond the life of the report.
struct ReportRow {
  std::int32_t group = 0;
  std::int32_t number = 0;
  bool error = false;
  bool lit = false;
  std::string caption;
  std::string hint;
};

enum class Happening {
  kPortCreated,
  kPortRefused,
  kPortReleased,
  kOpen,
  kClose,
  kWrite,
  kSleep,
  kLog,
  kBox,
  kReport,
  kMemoryFull,
  kMeanwhile,
  kJournal,
};

// What a fake saw. Which members mean something depends on the kind.
struct Event {
  Happening kind;
  std::string
      text;  // bytes written, line logged or appended to the journal, box text, settings, printer word
  std::string detail;       // log file, box title, device path, fiscal word
  std::int32_t number = 0;  // milliseconds, box style, port number
  std::int32_t answer = 0;  // what the operator answered
  std::vector<ReportRow> rows{};
};

// Everything that the fakes saw, in order.
class Journal {
 public:
  void Add(Event event) { events_.push_back(std::move(event)); }

  // The events since the last call of Take.
  std::vector<Event> Take() { return std::exchange(events_, {}); }

  [[nodiscard]] const std::vector<Event>& Events() const { return events_; }

 private:
  std::vector<Event> events_;
};

}  // namespace kestra
