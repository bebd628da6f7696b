#include "platform/posix/held_signals.hpp"

#include <array>

namespace kestra {
namespace {

constexpr std::array kOfWrites = {SIGPIPE, SIGXFSZ};

void Take(int signal) {
  sigset_t only = {};
  ::sigemptyset(&only);
  ::sigaddset(&only, signal);
  int taken = 0;
  ::sigwait(&only, &taken);
}

}  // namespace

HeldSignals::HeldSignals() {
  ::sigpending(&pending_before_);
  sigset_t held = {};
  ::sigemptyset(&held);
  for (const int signal : kOfWrites) ::sigaddset(&held, signal);
  ::pthread_sigmask(SIG_BLOCK, &held, &mask_before_);
}

HeldSignals::~HeldSignals() {
  sigset_t pending = {};
  ::sigpending(&pending);
  for (const int signal : kOfWrites) {
    const bool came = ::sigismember(&pending, signal) == 1;
    if (came && ::sigismember(&pending_before_, signal) != 1) Take(signal);
  }
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

}  // namespace kestra
