// What is told of a job that is over, or of which nobody knows. Pure.
#pragma once

#include "base/json.hpp"
#include "sale/plan.hpp"
#include "worker/clearing.hpp"

namespace puerta {

bool IsDone(const Report& report);

Json OutcomeJson(Fate fate, const Report& report);

// Nothing of it was sent, or nothing that is left.
Json NotDone(Report report);

// After something went wrong: `failed` is what the call said that did not go well, if any did.
Json OutcomeOf(const Plan& plan, const Cleared& cleared, const Report& failed);

Json CountersJson(const Counters& counters);

}  // namespace puerta
