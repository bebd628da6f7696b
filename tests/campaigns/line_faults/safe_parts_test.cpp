// Calls of several commands of which some were carried out: an item and its lines, an item and its sheet.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "campaigns/line_faults/safe_shop.hpp"

namespace kestra::line_faults {
namespace {

TEST_F(Shop, AnItemThatWasNotDoneKeepsTheLinesThatWere) {
  Sell({kOpen});
  const auto before = World().ToPrinter().Carried();
  Sell({kBread});
  constexpr std::size_t kEndOfTheItem = 6;
  CallInDoubt(kBread, World().ToPrinter().Carried() - before - kEndOfTheItem);
  EXPECT_EQ(Call("Kestra_Resolver"), 6);
  CallInDoubt(kBread, 0);
  Sell({kBread, kBread, kClose});
  EXPECT_EQ(Done(), "@AABAABAABE");
}

// Its second line is answered, and the cable is out before that is acknowledged.
TEST_F(Shop, AnItemThatNeverWentOutKeepsTheLinesThatWere) {
  Sell({kOpen});
  const auto frames = World().Frames().size();
  Sell({kBread});
  constexpr std::size_t kAcknowledgement = 1;
  const auto lines = World().Frames()[frames].size() + World().Frames()[frames + 1].size();
  World().Break({Direction::kToPrinter, World().ToPrinter().Carried() + lines + kAcknowledgement,
                 Breakage::kUnplugged});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Call(kBread), 1);
    ExpectReport(Outcome::kInPart, Cause::kPortMissing);
    EXPECT_FALSE(IsPending());
  }
  World().Mend();
  Sell({kNumbers, kBread, kBread, kClose});
  EXPECT_EQ(Done(), "@AABAABAABE");
}

TEST_F(Shop, TheLinesOfARefusedItemBelongToItsRetryAlone) {
  constexpr std::string_view kTooMuch =
      R"(EP_ImprimirItem "Pan" 9999 9999999 10.5 0 "Negro" "De molde" "")";
  Sell({kOpen});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Call(kTooMuch), 1);
    EXPECT_EQ(Report().outcome, Outcome::kInPart);
    EXPECT_EQ(Done(), "@AA");
  }
  Sell({kCoffee});
  EXPECT_EQ(Call(kTooMuch), 1);
  EXPECT_EQ(Done(), "@AABAA");
}

// A form with room for one line: the next item turns the sheet, and is made again for each of its steps.
class ShopWithForms : public Shop, public testing::WithParamInterface<bool> {
 protected:
  ShopWithForms()
      : Shop({{"TipoComprobante", "FC"}, {"UtilizaTransporte", "1"}}, Mode::kSafe,
             impresora::Family::kForm) {
    World().Printer().settings.lines_per_form = 1;
  }

  // Whether the till asks Kestra_Resolver first.
  static bool Asks() { return GetParam(); }
};

TEST_P(ShopWithForms, ASheetThatWasTurnedIsNotTheItem) {
  Sell({kOpenA, kCoffee});
  constexpr std::string_view kQuestion = "\\\x1CQ\x1CL";
  constexpr std::string_view kStep =
      "\\\x1C"
      "D\x1CP\x1CT\x1CT";
  constexpr std::size_t kFrame = 7;  // start, number, end, checksum
  constexpr std::size_t kAcknowledgement = 1;
  CallInDoubt(kCoffee, kQuestion.size() + kFrame + kAcknowledgement + kStep.size() + kFrame);
  ASSERT_TRUE(IsPending());
  if (Asks()) {
    EXPECT_EQ(Call("Kestra_Resolver"), 5) << "the item is still to come";
    EXPECT_EQ(Report().cause, Cause::kSheetTurned);
    EXPECT_FALSE(IsPending());
  }
  int calls = 1;
  for (; Call(kCoffee) != 0 && calls < 9; ++calls) {
    EXPECT_EQ(Report().outcome, Outcome::kInPart);
  }
  EXPECT_LE(calls, 3) << "the next sheet begins, the item is printed";
  Sell({kCloseA});
  EXPECT_EQ(Done(), "`b\\\\be");
}

TEST_P(ShopWithForms, ASheetThatWasNotTurnedIsNotDone) {
  Sell({kOpenA, kCoffee});
  constexpr std::size_t kIntoTheStep = 17;
  CallInDoubt(kCoffee, kIntoTheStep);
  ASSERT_TRUE(IsPending());
  if (Asks()) {
    EXPECT_EQ(Call("Kestra_Resolver"), 6);
  }
  for (int calls = 0; Call(kCoffee) != 0 && calls < 9; ++calls) {
  }
  Sell({kCloseA});
  EXPECT_EQ(Done(), "`b\\\\be");
}

INSTANTIATE_TEST_SUITE_P(AskedOrMadeAgain, ShopWithForms, testing::Bool());

}  // namespace
}  // namespace kestra::line_faults
