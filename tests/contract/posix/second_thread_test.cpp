// A host that calls from a second thread while a call is under way: the second call is turned away, and the
// first one does not notice. With threads, which the unit tests do without.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <utility>

#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "golden/base_configuration.hpp"

namespace kestra {
namespace {

FakePlatform& ShopThatAsks() {
  auto world = std::make_unique<FakePlatform>();
  auto& kept = *world;
  for (const auto& setting : golden::kBaseConfiguration) {
    kept.GetProfile().Set(setting.key, setting.value);
  }
  kept.GetProfile().Set("MostrarComandos", "1");
  ReplaceInstance(std::move(world));
  EXPECT_EQ(EP_Init(), 1);
  return kept;
}

std::int32_t FromAnotherThread() {
  std::int32_t result = 0;
  std::thread([&] { result = EP_AvanzaPapel(1); }).join();
  return result;
}

std::ptrdiff_t Boxes(FakePlatform& world) {
  const auto events = world.GetJournal().Take();
  return std::count_if(events.begin(), events.end(),
                       [](const Event& event) { return event.kind == Happening::kBox; });
}

TEST(SecondThread, IsTurnedAwayWhileTheFirstOneAsks) {
  auto& world = ShopThatAsks();
  std::int32_t result = 0;
  world.GetOperator().Meanwhile([&] { result = FromAnotherThread(); });
  world.GetOperator().Queue(Answer::kNo);
  EXPECT_EQ(EP_CortaPapel(), 1) << "the operator said no";
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Boxes(world), 1) << "the second call asked too";
}

TEST(SecondThread, IsServedOnceTheFirstOneIsDone) {
  auto& world = ShopThatAsks();
  world.GetOperator().Queue(Answer::kNo);
  EXPECT_EQ(EP_CortaPapel(), 1);
  FromAnotherThread();
  EXPECT_EQ(Boxes(world), 2) << "the second call was turned away";
}

}  // namespace
}  // namespace kestra
