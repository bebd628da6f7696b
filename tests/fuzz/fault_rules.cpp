// The text of fault rules as somebody in a hurry types it, and a printer that has to live with it.
#include <algorithm>
#include <array>
#include <string>

#include "faults/fault_plan.hpp"
#include "fuzz/input.hpp"
#include "fuzz/till.hpp"
#include "simulator/host.hpp"
#include "text/utf8.hpp"
#include "wire/control_bytes.hpp"

namespace impresora::fuzzing {
namespace {

using fuzz::Require;

const std::array<std::string, 5>& Ticket() {
  static const std::array kTicket{
      prueba::Body({"*", "N"}),
      prueba::Body({"@", "C"}),
      prueba::Body({"B", "Pan", "1000", "1000", "2100", "M", "1", "0", "0"}),
      prueba::Body({"D", "Efectivo", "1000", "T"}),
      prueba::Body({"E", "T"}),
  };
  return kTicket;
}

// A rule as it is shown is the same rule once more.
void CheckShown(const FaultPlan& plan) {
  FaultPlan again;
  unsigned number = 0;
  for (const FaultCount& rule : plan.Rules()) {
    Require(rule.id == ++number, "rules count up");
    Require(CleanUtf8(rule.text) == rule.text, "a rule can be shown");
    Require(again.Add(rule.text).empty(), "and read again");
    Require(again.Rules().back().text == rule.text, "as the same");
  }
  Require(plan.Report().empty() == plan.Empty(), "the report has what there is");
}

void CheckMistakes(std::string_view text, const std::vector<FaultMistake>& mistakes) {
  const auto lines = 1U + static_cast<unsigned>(std::count(text.begin(), text.end(), '\n'));
  unsigned before = 0;
  for (const FaultMistake& mistake : mistakes) {
    Require(mistake.line > before && mistake.line <= lines, "each in its line");
    const auto words = mistake.Words();
    Require(CleanUtf8(words) == words && !mistake.expected.empty(), "in words that can be shown");
    before = mistake.line;
  }
}

void CheckRules(std::string_view text) {
  Till till({});
  FaultPlan& plan = till.session.Faults();
  const auto mistakes = plan.Add(text);
  CheckMistakes(text, mistakes);
  Require(mistakes.empty() || plan.Empty(), "all the rules or none");
  if (plan.Empty()) return;
  CheckShown(plan);
  for (const auto& command : Ticket()) {
    till.Command(command);
    till.Send(std::string(1, kAck));
    till.CheckBooks();
  }
  for (const FaultCount& rule : plan.Rules()) {
    Require(rule.acted <= rule.due, "a rule acts when it is due");
  }
  plan.Clear();
  Require(plan.Empty() && plan.Report().empty(), "until all are taken back");
}

}  // namespace
}  // namespace impresora::fuzzing

FUZZ_TARGET(input) {
  impresora::fuzzing::CheckRules(input.Rest());
}
