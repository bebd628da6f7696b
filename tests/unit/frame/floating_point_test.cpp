// Hosts come with floating-point settings of their own, and get them back.

#include <gtest/gtest.h>

#include <cfenv>
#include <string>

#include "fakes/fake_platform.hpp"
#include "kestra/kestra.h"
#include "unit/frame/passed.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

constexpr std::array kRoundings{FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};

class ARounding : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { std::fesetround(GetParam()); }
  void TearDown() override { std::fesetround(FE_TONEAREST); }
};

TEST_P(ARounding, OfTheHostIsThereAfterEveryCall) {
  unit::ExportsOnFakes();
  const std::string blanks(200, ' ');
  for (const auto& exported : exports::Exports()) {
    unit::Call(exported, {.text = blanks.c_str(), .amount = 0.1});
    EXPECT_EQ(std::fegetround(), GetParam()) << exported.name;
  }
}

TEST_P(ARounding, OfTheHostDoesNotReachAnAmount) {
  auto& world = unit::StartedShop();
  for (const double amount : {1.005, 2.675, 0.125, 99.995}) {
    EXPECT_EQ(EP_ImprimirPago(std::string(80, ' ').c_str(), amount), 0);
  }
  const auto& frames = world.Line().Frames();
  ASSERT_EQ(frames.size(), 4u);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    constexpr std::array kHundredths{"101\x1C", "268\x1C", "013\x1C", "10000\x1C"};
    EXPECT_NE(frames[i].find(kHundredths[i]), std::string::npos) << frames[i];
  }
}

TEST_P(ARounding, LeavesNoExceptionFlagOfOurs) {
  unit::StartedShop();
  std::feclearexcept(FE_ALL_EXCEPT);
  EP_ImprimirPago(std::string(80, ' ').c_str(), 1e308);
  EP_AjusteRedondeo(0.1);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

INSTANTIATE_TEST_SUITE_P(Every, ARounding, testing::ValuesIn(kRoundings));

}  // namespace
}  // namespace kestra
