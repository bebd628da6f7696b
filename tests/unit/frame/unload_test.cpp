// The system asks whether the library may leave the host's memory.

#include <gtest/gtest.h>

#include "fakes/components.hpp"
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

TEST(Unload, WaitsForTheHostsObjectsEvenWithoutAPort) {
  unit::ExportsOnFakes();
  {
    const ObjectsOfTheHost held;
    EXPECT_EQ(DllCanUnloadNow(), kStays);
  }
  EXPECT_EQ(DllCanUnloadNow(), kMayGo);
}

TEST(Unload, WaitsForBothTheObjectsAndThePort) {
  unit::ExportsOnFakes();
  ASSERT_EQ(EP_Init(), 1);
  {
    const ObjectsOfTheHost held;
    EP_Kill();
    EXPECT_EQ(DllCanUnloadNow(), kStays);
  }
  EXPECT_EQ(DllCanUnloadNow(), kMayGo);
}

// The code that would be taken away is the code that asks.
TEST(Unload, WaitsForACallThatIsUnderWay) {
  auto& world = unit::ExportsOnFakes();
  std::int32_t answer = -1;
  world.GetOperator().Meanwhile([&] { answer = DllCanUnloadNow(); });
  EXPECT_EQ(EP_CortaPapel(), 1) << "nothing was started";
  EXPECT_EQ(answer, kStays);
  EXPECT_EQ(DllCanUnloadNow(), kMayGo);
}

}  // namespace
}  // namespace kestra
