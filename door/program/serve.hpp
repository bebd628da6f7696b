// The door at work: everything put together, until it is told to stop.
#pragma once

#include <vector>

#include "base/log.hpp"
#include "program/configuration.hpp"
#include "service/loop.hpp"

namespace puerta {

void TellErrors(const std::vector<FieldError>& errors, Log& log);

// What the process ends with. Errors that keep it from starting are in the log.
int Serve(const Configuration& configuration, Loop& loop, Log& log);

}  // namespace puerta
