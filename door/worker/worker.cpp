#include "worker/worker.hpp"

namespace puerta {

int RunWorker() {
  return 1;
}

}  // namespace puerta
