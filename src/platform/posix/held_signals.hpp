#pragma once

#include <signal.h>

namespace kestra {

// Holds back, while it lives, the signals that a write sends for a pipe without a reader or a file that may not
// grow, and takes those that came: each of them would end the host. One that was pending before stays for the
// host.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals();

 private:
  sigset_t pending_before_ = {};
  sigset_t mask_before_ = {};
};

}  // namespace kestra
