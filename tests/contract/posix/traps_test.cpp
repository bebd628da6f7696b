// A host that stops at each floating-point fault, as some compilers' programs do.

#include <fenv.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "kestra/kestra.h"

namespace kestra {
namespace {

constexpr int kTraps = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT;

TEST(AHostWithTraps, IsNotStoppedByAnyAmountAndKeepsItsTraps) {
  const std::string text(80, ' ');
  feclearexcept(FE_ALL_EXCEPT);
  feenableexcept(kTraps);
  for (const double amount :
       {0.1, -1.0, 1e308, 5e-324, std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::signaling_NaN()}) {
    EP_ImprimirPago(text.c_str(), amount);
    EP_ImprimirItem(text.c_str(), amount, amount, amount, amount, text.c_str(), text.c_str(),
                    text.c_str());
    EP_AjusteRedondeo(amount);
  }
  const int kept = fegetexcept();
  fedisableexcept(FE_ALL_EXCEPT);
  EXPECT_EQ(kept, kTraps);
}

}  // namespace
}  // namespace kestra
