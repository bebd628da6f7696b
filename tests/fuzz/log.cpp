// fiscal.log as it comes from tills that were switched off, disks that were full and editors that meant well.
#include <sstream>
#include <string>

#include "fuzz/input.hpp"
#include "text/utf8.hpp"
#include "tool/log/written_log.hpp"

namespace kestra::tool {
namespace {

using fuzz::Require;

// What is shown can stand in any file: the lines' own ends apart, it steers nothing.
void CheckShown(const std::string& shown) {
  std::istringstream lines(shown);
  for (std::string line; std::getline(lines, line);)
    Require(impresora::CleanUtf8(line) == line, "what is shown is UTF-8");
}

void CheckSheets(std::string_view text) {
  std::ostringstream table;
  std::ostringstream page;
  std::ostringstream objects;
  const auto sheets = {MakeTextSheet(table, 80, false), MakeHtmlSheet(page, "fiscal.log", true),
                       MakeJsonSheet(objects)};
  bool masked = false;
  for (const auto& sheet : sheets) {
    LogReport report({}, {}, Viewer({}, Mask(masked)), *sheet);
    report.Feed(text);
    report.End();
    masked = true;
  }
  CheckShown(table.str());
  CheckShown(page.str());
  CheckShown(objects.str());
}

void CheckLog(CodePage page, std::string_view bytes) {
  const std::string text = ToAnsi(page)(bytes);
  CheckSheets(text);
  const KeptSheet whole = ReadLog(text);
  Require(Told(whole.views) == Told(ReadLog(text, {}, 1).views), "however its bytes arrive");
  Require(whole.totals.shown == whole.views.size(), "everything is shown");
  // Whatever stands before, the next call is understood.
  const auto views =
      ReadLog(text + "\n" + WrittenLog().Exchange("EP_CortaPapel()", "K", "K|0080|0600").Text())
          .views;
  Require(views.back().operation == "EP_CortaPapel" && views.back().outcome == Outcome::kDone,
          "the next call");
}

}  // namespace
}  // namespace kestra::tool

FUZZ_TARGET(input) {
  using kestra::tool::CodePage;
  constexpr std::array kPages{CodePage::kAnsi, CodePage::kUtf8, CodePage::kUtf16, CodePage::kDos850,
                              CodePage::kDos437};
  const CodePage page = input.Pick(kPages);
  kestra::tool::CheckLog(page, input.Rest());
}
