#include "contract/shared/stacks.hpp"

#include <windows.h>

namespace kestra {

struct StackSwitch::Made {
  std::array<void*, 3> fibers{};
  void (*body)() = nullptr;

  static void CALLBACK Run(void* made) { static_cast<Made*>(made)->body(); }
};

StackSwitch::StackSwitch(void (*body)()) : made_(std::make_unique<Made>()) {
  made_->body = body;
  made_->fibers = {::ConvertThreadToFiber(nullptr), ::CreateFiber(0, &Made::Run, made_.get()),
                   ::CreateFiber(0, &Made::Run, made_.get())};
}

// The thread stays a fiber: its own stack is in use.
StackSwitch::~StackSwitch() {
  for (const Stack made : {Stack::kFirst, Stack::kSecond}) {
    ::DeleteFiber(made_->fibers[static_cast<std::size_t>(made)]);
  }
}

void StackSwitch::Switch(Stack /*from*/, Stack to) {
  ::SwitchToFiber(made_->fibers[static_cast<std::size_t>(to)]);
}

}  // namespace kestra
