#include "program/service_of_system.hpp"

namespace puerta {

int RunAsService(const std::function<int()>& work, const std::function<void()>&) {
  return work();
}

}  // namespace puerta
