#include <csignal>

#include "program/system.hpp"

namespace impresora {

std::tm LocalTime(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  return local;
}

std::vector<std::string> Arguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

std::FILE* OpenToWrite(const std::string& path) {
  return std::fopen(path.c_str(), "we");
}

std::vector<int> EndingSignals() {
  std::signal(SIGPIPE, SIG_IGN);
  return {SIGINT, SIGTERM, SIGHUP};
}

bool MayReusePorts() {
  return true;
}

}  // namespace impresora
