#include "program/log_lines.hpp"

#include <ostream>

#include "base/moment.hpp"

namespace puerta {

void LogLines::Write(std::string_view level, std::string_view what, const Json& data) {
  Json line = data;
  line["momento"] = MomentText(clock_.Now());
  line["nivel"] = level;
  line["suceso"] = what;
  const std::lock_guard lock(mutex_);
  to_ << LineOf(line) << "\n" << std::flush;
}

}  // namespace puerta
