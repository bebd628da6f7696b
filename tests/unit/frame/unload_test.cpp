// The system asks whether the library may leave the host's memory.

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "fakes/components.hpp"
#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kMayGo = 0;
constexpr std::int32_t kStays = 1;

// The host's objects for one test.
class ObjectsOfTheHost {
 public:
  ObjectsOfTheHost() { fake_components_in_use = true; }
  ObjectsOfTheHost(const ObjectsOfTheHost&) = delete;
  ObjectsOfTheHost& operator=(const ObjectsOfTheHost&) = delete;
  ~ObjectsOfTheHost() { fake_components_in_use = false; }
};

// Asks where a platform's component system does.
class AskingPlatform : public FakePlatform {
 public:
  void EndStartUp() override { at_start = DllCanUnloadNow(); }
  void ShutDown() override { at_end = DllCanUnloadNow(); }

  std::int32_t at_start = -1;
  std::int32_t at_end = -1;
};

TEST(Unload, WaitsForTheHostsObjectsEvenWithoutAPort) {
  unit::ExportsOnFakes();
  {
    const ObjectsOfTheHost held;
    EXPECT_EQ(DllCanUnloadNow(), kStays);
  }
  EXPECT_EQ(DllCanUnloadNow(), kMayGo);
}

TEST(Unload, WaitsForBothTheObjectsAndThePort) {
  unit::StartedShop();
  {
    const ObjectsOfTheHost held;
    EP_Kill();
    EXPECT_EQ(DllCanUnloadNow(), kStays);
  }
  EXPECT_EQ(DllCanUnloadNow(), kMayGo);
}

// The component system asks while the platform lets go: what it holds of the library is given back then.
TEST(Unload, MayGoWhileThePlatformLetsGo) {
  auto world = std::make_unique<AskingPlatform>();
  auto& kept = *world;
  unit::FillProfile(kept);
  ReplaceInstance(std::move(world));
  ASSERT_EQ(EP_Init(), 1);
  EXPECT_EQ(kept.at_start, kStays);
  EP_Kill();
  EXPECT_EQ(kept.at_end, kMayGo);
}

}  // namespace
}  // namespace kestra
