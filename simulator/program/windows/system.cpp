#include <csignal>

#include "program/system.hpp"

namespace impresora {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_s(&local, &moment);
  return local;
}

std::vector<int> EndingSignals() {
  return {SIGINT, SIGTERM};
}

bool MayReusePorts() {
  return false;
}

}  // namespace impresora
