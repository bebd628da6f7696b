#include "contract/shared/processor_time.hpp"

#include <sys/resource.h>

namespace kestra {

double ProcessorTime() {
  rusage usage = {};
  ::getrusage(RUSAGE_THREAD, &usage);
  const auto milliseconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

}  // namespace kestra
