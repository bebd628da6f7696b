#include "faults/rule.hpp"

#include <algorithm>

namespace impresora {
namespace {

// Whether one of the numbers behind `before` up to `after` is meant.
bool Reached(const Selector& s, std::uint64_t before, std::uint64_t after) {
  switch (s.times) {
    case Times::kEvery:
      return before / s.n != after / s.n;
    case Times::kOnly:
      return before < s.n && s.n <= after;
    case Times::kFrom:
      return s.n <= after;
  }
  return false;
}

}  // namespace

bool FaultRule::Over() const {
  const bool passed = selector.times == Times::kOnly && seen >= selector.n;
  return passed || (selector.most != 0 && acted >= selector.most);
}

bool FaultRule::Due(Subject subject, std::uint8_t command, Stage stage, std::uint64_t count) {
  const auto& wanted = selector.commands;
  if (subject != selector.subject || count == 0 || Over()) return false;
  if ((selector.stages & static_cast<unsigned>(stage)) == 0) return false;
  if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), command) == wanted.end()) {
    return false;
  }
  const std::uint64_t before = seen;
  seen += count;
  if (!Reached(selector, before, seen)) return false;
  ++due;
  return selector.millionths == kSure || chance() % kSure < selector.millionths;
}

}  // namespace impresora
