#pragma once

#include <string_view>

#include "log/code_page.hpp"
#include "log/documents.hpp"
#include "log/entries.hpp"
#include "log/filter.hpp"
#include "log/lines.hpp"
#include "log/sheet.hpp"
#include "log/survey.hpp"
#include "log/view.hpp"

namespace kestra::tool {

// From the bytes of a log to a sheet: all the steps between, for a log that may go on.
class LogReport {
 public:
  LogReport(const LogFacts& facts, Filter filter, Viewer viewer, Sheet& sheet);
  LogReport(const LogReport&) = delete;
  LogReport& operator=(const LogReport&) = delete;

  void Feed(std::string_view bytes);

  // Nothing more has come for a while: what is known is shown.
  void Rest();

  // The end of the log.
  void End();

  [[nodiscard]] const Totals& Counted() const { return totals_; }

 private:
  void TakeLines();
  void Show(const Entry& entry);

  LogFacts facts_;
  Filter filter_;
  Viewer viewer_;
  Sheet& sheet_;
  Totals totals_;
  ToAnsi to_ansi_;
  LineReader lines_;
  DocumentTracker documents_;
  EntryReader entries_;
};

}  // namespace kestra::tool
