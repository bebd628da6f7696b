#pragma once

#include "platform/seam/operator.hpp"
#include "state/library.hpp"

namespace kestra {

// The report on the answer decoded last: every row, lit or greyed.
Report BuildReport(const State& state);

}  // namespace kestra
