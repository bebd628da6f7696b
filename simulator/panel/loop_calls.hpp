#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>

namespace impresora {

// Runs a function on the thread that the printer lives on.
using Post = std::function<void(std::function<void()>)>;

// The loop ended, or is too busy to answer.
class LoopGone : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Questions from other threads to the one that the printer lives on.
class LoopCalls {
 public:
  explicit LoopCalls(Post post, std::chrono::milliseconds longest_wait = std::chrono::seconds(5))
      : post_(std::move(post)), longest_wait_(longest_wait) {}

  // What the function returned over there; throws what it threw, or LoopGone. Whoever was told
  // LoopGone can rely on it: the function was not run and never will be.
  template <typename Result>
  Result Ask(std::function<Result()> question) {
    struct Call {
      std::optional<Result> result;
      std::exception_ptr failure;
      bool done = false;
      bool given_up = false;
    };
    auto call = std::make_shared<Call>();
    post_([state = state_, call, question = std::move(question)] {
      const std::lock_guard lock(state->mutex);
      if (state->closed || call->given_up) return;
      try {
        call->result.emplace(question());
      } catch (...) {
        call->failure = std::current_exception();
      }
      call->done = true;
      state->changed.notify_all();
    });
    std::unique_lock lock(state_->mutex);
    state_->changed.wait_for(lock, longest_wait_, [&] { return call->done || state_->closed; });
    call->given_up = !call->done;
    if (call->given_up) throw LoopGone("la impresora no responde");
    if (call->failure) std::rethrow_exception(call->failure);
    return std::move(*call->result);
  }

  // No question is begun after this, and none waits any longer.
  void Close() {
    const std::lock_guard lock(state_->mutex);
    state_->closed = true;
    state_->changed.notify_all();
  }

 private:
  // Outlives this object in functions that the loop never came to run.
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    bool closed = false;
  };

  Post post_;
  std::chrono::milliseconds longest_wait_;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace impresora
