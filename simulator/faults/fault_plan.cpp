#include "faults/fault_plan.hpp"

#include <algorithm>
#include <utility>

#include "faults/actions.hpp"
#include "faults/draft.hpp"
#include "faults/rule_reader.hpp"

namespace impresora {
namespace {

struct ActingRule {
  FaultRule& rule;
  bool did_something = false;
};

// The actions of all rules whose moment it is, turn by turn.
class Turn {
 public:
  Turn(Draft& draft, Printer& printer, Answer* answer, std::string_view former)
      : draft_(draft), printer_(printer), answer_(answer), former_(former) {}

  void Join(FaultRule& rule) { acting_.push_back({rule}); }

  Verdict Act() {
    Verdict verdict;
    for (const Phase phase : kPhases) {
      for (ActingRule& acting : acting_) Act(phase, acting, verdict);
      if (answer_ != nullptr && phase == Phase::kState) draft_.TakeWords(*answer_);
      if (answer_ != nullptr && phase == Phase::kParts) draft_.Render();
    }
    for (const ActingRule& acting : acting_) acting.rule.acted += acting.did_something ? 1U : 0U;
    verdict.heard = draft_.heard;
    verdict.busy = draft_.busy;
    verdict.bursts = draft_.Bursts();
    return verdict;
  }

 private:
  void Act(Phase phase, ActingRule& acting, Verdict& verdict) {
    Scene scene{draft_, printer_, answer_, former_, acting.rule.chance};
    for (const Action& action : acting.rule.actions) {
      if (action.row->phase != phase || !action.row->run(action, scene)) continue;
      acting.did_something = true;
      verdict.faults.push_back(action.text);
    }
  }

  Draft& draft_;
  Printer& printer_;
  Answer* answer_;
  std::string_view former_;
  std::vector<ActingRule> acting_;
};

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

std::string TimesText(std::uint64_t count) {
  return std::to_string(count) + (count == 1 ? " vez" : " veces");
}

// Neighbouring rules must not draw alike.
std::uint64_t SeedOf(std::uint64_t seed, unsigned id) {
  return seed ^ (id * 0x9E37'79B9'7F4A'7C15ULL);
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::string FaultMistake::Words() const {
  return "renglón " + std::to_string(line) + ": dice " + read + ", se esperaba " + expected;
}

FaultPlan::FaultPlan(std::uint64_t seed) : seed_(seed) {}
FaultPlan::~FaultPlan() = default;

std::vector<FaultMistake> FaultPlan::Add(std::string_view text) {
  std::vector<std::unique_ptr<FaultRule>> rules;
  std::vector<FaultMistake> mistakes;
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    text.remove_prefix(kByteOrderMark.size());
  }
  for (unsigned number = 1; !text.empty(); ++number) {
    RuleReader reader(TakeLine(text));
    if (reader.Empty()) continue;
    try {
      rules.push_back(std::make_unique<FaultRule>(reader.Read()));
    } catch (const NotExpected& what) {
      mistakes.push_back({number, what.read, what.expected});
    }
  }
  if (!mistakes.empty()) return mistakes;
  for (std::unique_ptr<FaultRule>& rule : rules) {
    rule->id = ++last_id_;
    rule->chance.seed(SeedOf(seed_, rule->id));
    rules_.push_back(std::move(rule));
  }
  return {};
}

bool FaultPlan::Remove(unsigned id) {
  const auto is_it = [id](const std::unique_ptr<FaultRule>& rule) { return rule->id == id; };
  const auto found = std::find_if(rules_.begin(), rules_.end(), is_it);
  if (found == rules_.end()) return false;
  rules_.erase(found);
  return true;
}

void FaultPlan::Clear() {
  rules_.clear();
}

std::vector<FaultCount> FaultPlan::Rules() const {
  std::vector<FaultCount> counts;
  for (const auto& rule : rules_) {
    counts.push_back({rule->id, rule->text, rule->due, rule->acted, rule->Over()});
  }
  return counts;
}

std::string FaultPlan::Report() const {
  std::string text;
  for (const FaultCount& rule : Rules()) {
    text += std::to_string(rule.id) + ". " + rule.text + " -> tocó " + TimesText(rule.due) +
            ", actuó " + TimesText(rule.acted) + "\n";
  }
  return text;
}

Verdict FaultPlan::Arriving(const Packet& packet, Printer& printer) {
  Draft draft;
  Turn turn(draft, printer, nullptr, {});
  const Stage stage = printer.GetStage();
  for (const auto& rule : rules_) {
    if (rule->Due(Subject::kCommand, packet.command, stage, 1)) turn.Join(*rule);
  }
  return turn.Act();
}

Verdict FaultPlan::Leaving(const Reply& reply, Printer& printer) {
  Draft draft(reply.packet, reply.answer);
  Turn turn(draft, printer, &reply.answer, reply.former);
  const std::uint8_t command = reply.packet.command;
  for (const auto& rule : rules_) {
    const bool due = rule->Due(Subject::kAnswer, command, reply.stage, 1) ||
                     rule->Due(Subject::kLine, command, reply.stage, reply.lines);
    if (due) turn.Join(*rule);
  }
  return turn.Act();
}

}  // namespace impresora
