#include "dialogs/conditions.hpp"

#include <algorithm>

namespace kestra {

bool IsLit(const Condition& condition, const Flags& printer, const Flags& fiscal) {
  const auto& flags = condition.word == StatusWord::kPrinter ? printer : fiscal;
  return flags[condition.slot] != kFalse;
}

bool FailsCommand(const Flags& printer, const Flags& fiscal) {
  return std::any_of(kConditions.begin(), kConditions.end(), [&](const Condition& condition) {
    return condition.failure && IsLit(condition, printer, fiscal);
  });
}

std::vector<std::string_view> StatusMessages(const Flags& printer, const Flags& fiscal) {
  std::vector<std::string_view> messages;
  for (const auto& condition : kConditions) {
    if (!IsLit(condition, printer, fiscal)) continue;
    for (const auto message : {condition.message, condition.other_message}) {
      if (!message.empty()) messages.push_back(message);
    }
  }
  return messages;
}

}  // namespace kestra
