#include "contract/shared/processor_time.hpp"

#include <windows.h>

namespace kestra {

double ProcessorTime() {
  FILETIME created = {}, ended = {}, kernel = {}, user = {};
  ::GetThreadTimes(::GetCurrentThread(), &created, &ended, &kernel, &user);
  const auto milliseconds = [](const FILETIME& time) {
    return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) / 1e4;
  };
  return milliseconds(kernel) + milliseconds(user);
}

}  // namespace kestra
