// The log as lines of JSON on the standard error, where systemd and people read it.
#pragma once

#include <iosfwd>
#include <mutex>

#include "base/clock.hpp"
#include "base/log.hpp"

namespace puerta {

class LogLines : public Log {
 public:
  LogLines(std::ostream& to, const Clock& clock) : to_(to), clock_(clock) {}

  void Write(std::string_view level, std::string_view what, const Json& data) override;

 private:
  std::ostream& to_;
  const Clock& clock_;
  std::mutex mutex_;  // the outbox has a thread of its own
};

}  // namespace puerta
