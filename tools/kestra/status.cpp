#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "commands.hpp"
#include "dialogs/conditions.hpp"
#include "json.hpp"
#include "probe.hpp"
#include "settings.hpp"

namespace kestra::tool {
namespace {

Reply AskPrinter(std::string_view command) {
  const Way way = ReadWay();
  try {
    auto reply = Probe(PortOf(way)).Ask(command);
    if (reply.answered) return reply;
  } catch (const Failure& failure) {
    throw Stop(Exit::kNoAnswer, Utf8FromAnsi(failure.Description()));
  }
  throw Stop(Exit::kNoAnswer, "la impresora no contesta en " + Utf8FromAnsi(DeviceOf(way)) +
                                  "; ver kestra diagnostico");
}

std::uint16_t WordOf(const std::string& digits) {
  std::uint16_t word = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), word, 16);
  return word;
}

}  // namespace

Exit RunStatus(const Request&, Console& console) {
  const auto reply = AskPrinter(
      "*\x1C"
      "A");
  const auto printer = WordOf(reply.fields[0]);
  const auto fiscal = WordOf(reply.fields[1]);
  Json rows = Json::array();
  bool fails = false;
  for (const auto& condition : kConditions) {
    const auto word = condition.word == StatusWord::kPrinter ? printer : fiscal;
    const auto bit = condition.slot == kOutOfPaper ? kOutOfPaper + 1 : condition.slot;
    if ((word >> bit & 1u) == 0) continue;
    fails = fails || condition.severity == Severity::kError || condition.failure;
    rows.push_back({{"texto", Utf8FromAnsi(condition.text)},
                    {"error", condition.severity == Severity::kError}});
  }
  if (console.WantsJson()) {
    Print(console,
          {{"impresora", reply.fields[0]}, {"fiscal", reply.fields[1]}, {"estados", rows}});
  } else {
    console.Line("Impresora " + reply.fields[0] + ", fiscal " + reply.fields[1]);
    for (const auto& row : rows) console.Line("  " + row["texto"].get<std::string>());
  }
  return fails ? Exit::kFindings : Exit::kGood;
}

}  // namespace kestra::tool
