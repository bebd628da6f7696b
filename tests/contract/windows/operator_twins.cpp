#include "contract/shared/operator_bench.hpp"

namespace kestra {

// The system's own boxes need somebody who presses their buttons: tests/contract/windows/dialogs.
std::vector<OperatorTwin> OperatorTwins() {
  return {{"Host", MakeHostBench}, {"Fake", MakeFakeBench}};
}

}  // namespace kestra
