#pragma once

#include <signal.h>
#include <sys/time.h>

#include <atomic>

namespace kestra {

// A timer that interrupts the process every few milliseconds, as some hosts have.
class Ticking {
 public:
  Ticking() {
    struct sigaction action = {};
    action.sa_handler = [](int) { ticks_.fetch_add(1); };  // no SA_RESTART: calls are cut short
    ticks_ = 0;
    ::sigaction(SIGALRM, &action, &before_);
    Every(2000);
  }
  Ticking(const Ticking&) = delete;
  Ticking& operator=(const Ticking&) = delete;
  ~Ticking() {
    Every(0);
    ::sigaction(SIGALRM, &before_, nullptr);
  }

  static int Ticks() { return ticks_; }

 private:
  static void Every(suseconds_t microseconds) {
    itimerval period = {};
    period.it_interval.tv_usec = period.it_value.tv_usec = microseconds;
    ::setitimer(ITIMER_REAL, &period, nullptr);
  }

  static inline std::atomic<int> ticks_ = 0;
  struct sigaction before_ = {};
};

}  // namespace kestra
