#pragma once

#include <atomic>
#include <cerrno>
#include <cstdint>

#include "platform/seam/host.hpp"

namespace kestra {

// The one call that is under way. A call made meanwhile, from a dialog's callback or from another
// thread, would send its command into the middle of the exchange: it is turned away.
//
// A host may also leave a callback with a jump or an exception of its own, past the call that the
// callback came from: that call never ends. Stacks grow downward, so that a later call on the same
// stack gives it away by lying no deeper than where the host was let in; it takes the turn over. A
// call on another stack of the same thread (a fiber's, a signal's) tells nothing of the kind: the
// one in the middle may go on at any time.
class Turn {
 public:
  Turn() : mine_(Take()) {}
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn() {
    if (mine_) owner_.store(kNobody, std::memory_order_release);
  }

  explicit operator bool() const { return mine_; }

  // True when it was taken over: what the other call held is still held.
  [[nodiscard]] bool Inherited() const { return inherited_; }

  // Lies in the stack of the call for as long as the host's code runs in the middle of it.
  class Visit {
   public:
    Visit() : before_(bottom_) { bottom_ = Address(this); }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit() { bottom_ = before_; }

   private:
    std::uintptr_t before_;
  };

 private:
  static constexpr std::uintptr_t kNobody = 0;

  static std::uintptr_t Address(const void* place) {
    return reinterpret_cast<std::uintptr_t>(place);
  }

  // Each thread has an errno of its own; not every compiler for Windows has names for threads.
  static std::uintptr_t CurrentThread() { return Address(&errno); }

  [[nodiscard]] bool FindsAbandoned() const {
    return Address(this) >= bottom_ && InOneStack(Address(this), bottom_);
  }

  bool Take() {
    auto owner = kNobody;
    const bool free =
        owner_.compare_exchange_strong(owner, CurrentThread(), std::memory_order_acquire);
    inherited_ = !free && owner == CurrentThread() && FindsAbandoned();
    if (free || inherited_) bottom_ = Address(this);
    return free || inherited_;
  }

  static inline std::atomic<std::uintptr_t> owner_ = kNobody;
  // The deepest place known to be in the call's stack. Its own thread alone looks at it.
  static inline std::uintptr_t bottom_ = 0;

  bool inherited_ = false;
  bool mine_;
};

}  // namespace kestra
