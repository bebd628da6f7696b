#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace kestra {

// The stacks that one thread may run on: its own, and two that it has made.
enum class Stack { kOwn, kFirst, kSecond };

// Their way of the system: the POSIX and the Windows tests have one each.
class StackSwitch {
 public:
  // `body` is what a made stack runs; it never ends.
  explicit StackSwitch(void (*body)());
  StackSwitch(const StackSwitch&) = delete;
  StackSwitch& operator=(const StackSwitch&) = delete;
  ~StackSwitch();

  // Leaves the one as it stands and goes on where the other was left.
  void Switch(Stack from, Stack to);

 private:
  struct Made;
  std::unique_ptr<Made> made_;
};

// A thread that goes from stack to stack in the middle of its work, as one with fibers does.
class Stacks {
 public:
  // Runs the action on that stack; this one goes on when it has ended.
  static void Run(Stack where, const std::function<void()>& action) {
    Stacks& all = The();
    const Stack here = all.here_;
    bool done = false;
    all.callers_[Index(where)] = here;
    all.jobs_[Index(where)] = [&] {
      action();
      done = true;
    };
    while (!done) {
      all.GoTo(where);
      all.Work();  // it may have come back to ask for something to be done here
    }
  }

 private:
  static std::size_t Index(Stack stack) { return static_cast<std::size_t>(stack); }

  static Stacks& The() {
    static Stacks stacks;
    return stacks;
  }

  static void Body() {
    Stacks& all = The();
    for (;;) {
      const Stack back = all.callers_[Index(all.here_)];
      all.Work();
      all.GoTo(back);
    }
  }

  void Work() {
    if (const auto job = std::exchange(jobs_[Index(here_)], nullptr)) job();
  }

  void GoTo(Stack to) {
    const Stack from = std::exchange(here_, to);
    switch_.Switch(from, to);
  }

  StackSwitch switch_{&Body};
  Stack here_ = Stack::kOwn;
  std::array<std::function<void()>, 3> jobs_{};
  std::array<Stack, 3> callers_{};
};

}  // namespace kestra
