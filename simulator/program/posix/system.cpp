#include <csignal>

#include "program/system.hpp"

namespace impresora {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  return local;
}

std::vector<int> EndingSignals() {
  std::signal(SIGPIPE, SIG_IGN);
  return {SIGINT, SIGTERM, SIGHUP};
}

bool MayReusePorts() {
  return true;
}

}  // namespace impresora
