#include "contract/shared/stacks.hpp"

#include <ucontext.h>

#include <vector>

namespace kestra {

// Both stacks in one piece of memory, the second above the first.
struct StackSwitch::Made {
  static constexpr std::size_t kSize = 0x40000;

  std::vector<char> memory = std::vector<char>(2 * kSize);
  std::array<ucontext_t, 3> contexts{};

  ucontext_t& Of(Stack stack) { return contexts[static_cast<std::size_t>(stack)]; }

  void Make(Stack stack, char* lowest, void (*body)()) {
    ucontext_t& context = Of(stack);
    ::getcontext(&context);
    context.uc_stack.ss_sp = lowest;
    context.uc_stack.ss_size = kSize;
    ::makecontext(&context, body, 0);
  }
};

StackSwitch::StackSwitch(void (*body)()) : made_(std::make_unique<Made>()) {
  made_->Make(Stack::kFirst, made_->memory.data(), body);
  made_->Make(Stack::kSecond, made_->memory.data() + Made::kSize, body);
}

StackSwitch::~StackSwitch() = default;

void StackSwitch::Switch(Stack from, Stack to) {
  ::swapcontext(&made_->Of(from), &made_->Of(to));
}

}  // namespace kestra
