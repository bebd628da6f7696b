#include "log/survey.hpp"

#include <string_view>

#include "log/lines.hpp"
#include "log/source.hpp"

namespace kestra::tool {
namespace {

CodePage GuessPage(const std::filesystem::path& path) {
  CodePageGuess guess;
  GrowingFile(path).ReadOn([&](std::string_view bytes) { guess.Feed(bytes); });
  return guess.Guess();
}

// One date that can only be read in one way says how all are written.
DateOrder GuessOrder(const std::filesystem::path& path, CodePage page) {
  DateOrder order = DateOrder::kDayFirst;
  bool known = false;
  ToAnsi to_ansi(page);
  LineReader lines;
  GrowingFile(path).ReadOn([&](std::string_view bytes) {
    if (known) return;
    lines.Feed(to_ansi(bytes));
    while (const auto line = lines.Next()) {
      const auto said = OrderOf(line->stamp.date);
      if (!said || known) continue;
      order = *said;
      known = true;
    }
  });
  return order;
}

}  // namespace

LogFacts SurveyLog(const std::filesystem::path& path, std::optional<CodePage> page) {
  LogFacts facts;
  facts.page = page ? *page : GuessPage(path);
  facts.order = GuessOrder(path, facts.page);
  return facts;
}

}  // namespace kestra::tool
