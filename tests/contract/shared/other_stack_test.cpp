// A host whose thread leaves a call in the middle for another stack (a fiber, a context, a signal's) and calls the
// library from there: the call in the middle is not over, and goes on undisturbed.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "contract/shared/stacks.hpp"
#include "fakes/fake_platform.hpp"
#include "kestra/kestra.h"
#include "unit/world.hpp"

namespace kestra {
namespace {

FakePlatform& ShopThatListsAnswers() {
  auto& world = unit::StartedShop("MostrarRespuestas", "1");
  world.GetJournal().Take();
  return world;
}

// What the world saw of the port and of the boxes, in order.
std::vector<Happening> Course(FakePlatform& world) {
  std::vector<Happening> course;
  for (const Event& event : world.GetJournal().Take()) {
    if (event.kind != Happening::kLog) course.push_back(event.kind);
  }
  return course;
}

struct StackRow {
  const char* sentence;
  Stack of_the_call;
  Stack of_the_nested;
};

class OtherStack : public testing::TestWithParam<StackRow> {};

// Leaving a call on the first stack and calling from the second, whichever lies higher.
const StackRow kStacks[] = {
    {"from a made stack, the call is on the thread's own", Stack::kOwn, Stack::kFirst},
    {"from the thread's own, the call is on a made one", Stack::kFirst, Stack::kOwn},
    {"from the second, the call is on the first", Stack::kFirst, Stack::kSecond},
    {"from the first, the call is on the second", Stack::kSecond, Stack::kFirst},
};
INSTANTIATE_TEST_SUITE_P(Rows, OtherStack, testing::ValuesIn(kStacks),
                         [](const auto& row) { return "Row" + std::to_string(row.index); });

void RunOn(Stack where, const std::function<void()>& action, Stack here = Stack::kOwn) {
  if (where == here) return action();
  Stacks::Run(where, action);
}

TEST_P(OtherStack, ANestedCallIsTurnedAwayAndTheFirstGoesOn) {
  auto& world = ShopThatListsAnswers();
  EXPECT_EQ(EP_CortaPapel(), 0);
  const auto undisturbed = Course(world);

  std::int32_t nested = -1;
  world.GetOperator().Meanwhile([&] {
    RunOn(
        GetParam().of_the_nested, [&] { nested = EP_AvanzaPapel(1); }, GetParam().of_the_call);
  });
  std::int32_t result = -1;
  RunOn(GetParam().of_the_call, [&] { result = EP_CortaPapel(); });
  EXPECT_EQ(nested, 1) << GetParam().sentence;
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Course(world), undisturbed);
}

TEST_P(OtherStack, IsServedWhenNoCallIsUnderWay) {
  ShopThatListsAnswers();
  std::int32_t first = -1;
  std::int32_t second = -1;
  RunOn(GetParam().of_the_call, [&] { first = EP_CortaPapel(); });
  RunOn(GetParam().of_the_nested, [&] { second = EP_AvanzaPapel(1); });
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 0);
}

}  // namespace
}  // namespace kestra
