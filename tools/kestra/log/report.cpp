#include "log/report.hpp"

#include <utility>

namespace kestra::tool {

LogReport::LogReport(const LogFacts& facts, Filter filter, Viewer viewer, Sheet& sheet)
    : facts_(facts),
      filter_(std::move(filter)),
      viewer_(std::move(viewer)),
      sheet_(sheet),
      to_ansi_(facts.page),
      documents_([this](const Entry& entry) { Show(entry); }),
      entries_([this](Entry entry) { documents_.Add(std::move(entry)); }) {}

void LogReport::Feed(std::string_view bytes) {
  lines_.Feed(to_ansi_(bytes));
  TakeLines();
}

void LogReport::Rest() {
  lines_.Rest();
  TakeLines();
  entries_.Rest();
  // One that is sought by its number is not known before it is closed.
  if (filter_.number.empty()) documents_.Rest();
}

void LogReport::End() {
  Rest();
  documents_.Rest();
  totals_.documents = documents_.Count();
  sheet_.End(totals_);
}

void LogReport::TakeLines() {
  while (const auto line = lines_.Next()) entries_.Add(*line);
}

// A view is made of every entry, for what it teaches the viewer.
void LogReport::Show(const Entry& entry) {
  const View view = viewer_.Show(entry);
  if (!entry.frame.empty()) ++totals_.frames;
  if (entry.outcome == Outcome::kUnreadable) ++totals_.damaged;
  if (view.Failed()) ++totals_.failures;
  if (!filter_.Wants(entry, facts_.order)) return;
  ++totals_.shown;
  sheet_.Add(view);
}

}  // namespace kestra::tool
