#include "program/service_of_system.hpp"

namespace puerta {

int RunAsService(const std::function<int()>& work, const std::function<void()>&) {
  return work();
}

std::vector<std::string> Words(int count, char** arguments) {
  return {arguments + 1, arguments + count};
}

}  // namespace puerta
