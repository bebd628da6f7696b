// What is told of a job when something has become of it.
#pragma once

#include <vector>

#include "store/store.hpp"

namespace puerta {

// The job as it will stand once this is written.
Job With(Job job, const Outcome& outcome, Moment now);

std::vector<Event> EventsOf(const Job& job);

}  // namespace puerta
