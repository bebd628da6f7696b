// What became of a job that did not end by itself: the printer is asked, what is open of it is cancelled.
#pragma once

#include <cstdint>
#include <string>

#include "sale/plan.hpp"
#include "worker/library.hpp"

namespace puerta {

// What was known before the first byte. It goes to the door as JSON, and comes back after a death.
struct Before {
  bool known = false;        // else nothing was sent
  std::int64_t intent = -1;  // the newest of the journal; -1 when that could not be read
  bool open = false;         // a document that is not the job's
  Counters counters = {};
};

Json ToJson(const Before& before);
Before ReadBefore(const Json& told);

struct Cleared {
  Verdict verdict = {};
  bool settled = true;  // else: ask again later
  Report why = {};      // of what stands in the way, when it is not settled
  bool cancelled = false;
};

Cleared Clear(Library& library, const std::string& journal, const Plan& plan, const Before& before);

}  // namespace puerta
