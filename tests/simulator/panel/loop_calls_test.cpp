#include "panel/loop_calls.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace impresora {
namespace {

// A loop that runs what it is given when it is told to.
struct SlowLoop {
  std::vector<std::function<void()>> given;
  LoopCalls calls{[this](std::function<void()> work) { given.push_back(std::move(work)); },
                  std::chrono::milliseconds(0)};

  void Run() {
    for (const auto& work : given) work();
  }
};

TEST(LoopCalls, WhatWasGivenUpIsNeverCarriedOut) {
  SlowLoop loop;
  int carried_out = 0;
  EXPECT_THROW(loop.calls.Ask<int>([&] { return ++carried_out; }), LoopGone);
  loop.Run();
  EXPECT_EQ(carried_out, 0);
}

TEST(LoopCalls, AnAnswerAndAFailureComeBack) {
  LoopCalls calls([](const std::function<void()>& work) { work(); });
  EXPECT_EQ(calls.Ask<int>([] { return 7; }), 7);
  EXPECT_THROW(calls.Ask<int>([]() -> int { throw std::logic_error("no"); }), std::logic_error);
}

TEST(LoopCalls, AfterTheEndNothingIsBegun) {
  SlowLoop loop;
  bool begun = false;
  loop.calls.Close();
  EXPECT_THROW(loop.calls.Ask<bool>([&] { return begun = true; }), LoopGone);
  loop.Run();
  EXPECT_FALSE(begun);
}

}  // namespace
}  // namespace impresora
