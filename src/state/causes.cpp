#include "state/causes.hpp"

#include <algorithm>
#include <utility>

#include "platform/seam/port_fault.hpp"
#include "state/certainty.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kFirstOfPorts = 200;

static_assert(static_cast<std::int32_t>(Cause::kPortNumber) ==
              kFirstOfPorts + PortReason(PortFault::kBadNumber));
static_assert(static_cast<std::int32_t>(Cause::kPortLost) ==
              kFirstOfPorts + PortReason(PortFault::kLost));
static_assert(static_cast<std::int32_t>(Cause::kNetTurnedAway) ==
              kFirstOfPorts + PortReason(PortFault::kTurnedAway));

// What became of the call, in the order of the outcomes.
constexpr std::array kOutcomeTexts = {
    ""_ansi,
    "La operación se hizo."_ansi,
    "La impresora no hizo la operación."_ansi,
    "La operación no se mandó a la impresora."_ansi,
    "No se sabe si la operación se hizo: mire el papel antes de repetirla."_ansi,
    "La operación se hizo solo en parte: mire el papel antes de seguir."_ansi,
    "La operación no se hizo."_ansi,
};
static_assert(kOutcomeTexts.size() == static_cast<std::size_t>(Outcome::kNotDone) + 1);

const CauseRow& RowOf(Cause cause) {
  const auto* const found = std::find_if(kCauses.begin(), kCauses.end(),
                                         [&](const CauseRow& row) { return row.cause == cause; });
  return found == kCauses.end() ? kCauses.front() : *found;
}

}  // namespace

Cause CauseOf(const Failure& failure) {
  if (failure.Reason() != 0) return static_cast<Cause>(kFirstOfPorts + failure.Reason());
  if (failure.Number() == kNoObject) return Cause::kNotStarted;
  if (failure.Number() == kOutOfMemory) return Cause::kNoMemory;
  if (failure.Number() == kTypeMismatch) return Cause::kUnexpected;
  return Cause::kInternal;
}

std::string CauseText(Cause cause, Outcome outcome) {
  const auto& row = RowOf(cause);
  std::string text(row.what);
  for (const auto sentence : {kOutcomeTexts[static_cast<std::size_t>(outcome)], row.advice}) {
    if (!text.empty() && !sentence.empty()) text += ' ';
    text += sentence;
  }
  return text;
}

}  // namespace kestra
