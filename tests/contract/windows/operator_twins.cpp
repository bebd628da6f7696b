#include "contract/shared/operator_bench.hpp"

namespace kestra {

// The system's own boxes need somebody who presses their buttons: tests/contract/windows/dialogs.
std::vector<Twin<OperatorBench>> OperatorTwins() {
  return {TwinOf<OperatorBench, HostBench>("Host"), TwinOf<OperatorBench, FakeBench>("Fake")};
}

}  // namespace kestra
