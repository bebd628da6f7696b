#include <gtest/gtest.h>

#include <string_view>
#include <tuple>
#include <vector>

#include "campaigns/line_faults/safe_shop.hpp"

namespace kestra::line_faults {
namespace {

TEST_F(Shop, WithoutAFaultNothingMoreIsSent) {
  Sell({kOpen, kCoffee, kBread, kPay, kClose});
  EXPECT_EQ(World().Frames().size(), 7U) << "the bread has two lines more";
  EXPECT_EQ(Report().outcome, Outcome::kDone);
  EXPECT_EQ(number_, "00000001");
}

TEST_F(Shop, WithALowBatteryAWholeTicketIsSold) {
  World().Printer().faults.low_battery = true;
  Sell({kOpen, kCoffee, kBread, kPay});
  EXPECT_EQ(Report().cause, Cause::kBatteryLow);
  Sell({kClose});
  EXPECT_EQ(number_, "00000001");
  EXPECT_EQ(Done(), "@BAABDE");
  EXPECT_EQ(Reports(), 5U) << "once a call";
}

TEST_F(Shop, ADayThatGrowsTooLongInMidTicketFailsNoneOfItsCalls) {
  Sell({kOpen, kCoffee});
  *World().Printer().day.opened -= 90'000;
  Sell({kPay, kClose});
  EXPECT_EQ(Report().cause, Cause::kDayTooLong);
  EXPECT_EQ(Call(kOpen), 1);
  EXPECT_EQ(Report().outcome, Outcome::kRefused);
  EXPECT_EQ(Done(), "@BDE");
}

TEST_F(Shop, PaperThatEndsDuringACommandFailsOnlyTheNext) {
  Sell({kOpen});
  World().Printer().paper_left = 1;
  Sell({kCoffee});
  EXPECT_EQ(Reports(), 1U);
  EXPECT_EQ(Call(kPay), 1);
  ExpectReport(Outcome::kRefused, Cause::kNoPaper);
  EXPECT_EQ(Done(), "@B");
}

TEST_F(Shop, PaperThatIsChangedInTimeIsNoFailure) {
  Sell({kOpen});
  TakePaperOutFor(kMoment);
  Sell({kCoffee, kBread, kPay, kClose});
  EXPECT_EQ(Reports(), 0U);
  EXPECT_EQ(Done(), "@BAABDE");
}

TEST_F(Shop, WhoeverPutsPaperInAndPressesRetryHasItDoneOnce) {
  Sell({kOpen});
  TakePaperOutFor(kLong);
  for (int i = 0; i < 3; ++i) World().GetOperator().Queue(Answer::kRetry);
  Sell({kCoffee});
  EXPECT_EQ(Done(), "@B");
}

// How many bytes of a frame pass before the cable is pulled: none, some, all of them.
class ShopWithBadCable : public Shop, public testing::WithParamInterface<std::size_t> {};

TEST_P(ShopWithBadCable, ACablePutBackInTimeIsNoFailure) {
  for (const auto call : {kOpen, kCoffee, kBread, kPay, kClose}) {
    UnplugForAMoment(GetParam());
    EXPECT_EQ(Call(call), call == kBread && GetParam() > 0 ? 1 : 0) << call;
    World().PlugIn();
    if (call == kBread && GetParam() > 0) {
      EXPECT_EQ(Report().outcome, Outcome::kUnknown) << "no book shows its first line";
      EXPECT_EQ(Call(call), 0);
    }
  }
  EXPECT_EQ(number_, "00000001");
  auto done = Done();
  std::erase(done, 'A');
  EXPECT_EQ(done, "@BBDE");
}

TEST_P(ShopWithBadCable, WhatOutlastsThePatienceIsSettledByTheSameCallMadeAgain) {
  for (const auto call : {kOpen, kCoffee, kPay, kClose}) {
    World().Unplug(GetParam());
    EXPECT_EQ(Call(call), 1) << call;
    const bool sent = GetParam() > 0;
    EXPECT_EQ(Report().outcome, sent ? Outcome::kUnknown : Outcome::kNotSent) << call;
    EXPECT_EQ(IsPending(), sent);
    if (sent) {
      EXPECT_EQ(Call(call), 1) << "it is out still";
      ExpectReport(Outcome::kNotSent, Cause::kUnsettled);
      EXPECT_TRUE(IsPending());
    }
    World().PlugIn();
    EXPECT_EQ(Call(call), 0) << call;
    EXPECT_FALSE(IsPending());
  }
  EXPECT_EQ(number_, "00000001");
  EXPECT_EQ(Done(), "@BDE");
}

TEST_P(ShopWithBadCable, AnotherCallSettlesItAndGoesItsOwnWay) {
  Sell({kOpen});
  CallInDoubt(kCoffee, GetParam());
  Sell({kBread, kPay, kClose});
  const bool arrived = GetParam() == LineWorld::kWholeFrame;
  EXPECT_EQ(Done(), arrived ? "@BAABDE" : "@AABDE");
}

TEST_P(ShopWithBadCable, AQuestionBetweenTheDoubtAndTheRetryForgetsNothing) {
  for (const auto call : {kOpen, kCoffee, kPay, kClose}) {
    CallInDoubt(call, GetParam());
    Sell({kNumbers});
    EXPECT_FALSE(IsPending());
    Sell({kNumbers, call});
  }
  EXPECT_EQ(number_, "00000001");
  EXPECT_EQ(Done(), "@BDE");
}

TEST_P(ShopWithBadCable, CancellingWhatMayBeClosedTellsWhichItIs) {
  Sell({kOpen, kCoffee});
  CallInDoubt(kClose, GetParam());
  const bool arrived = GetParam() == LineWorld::kWholeFrame;
  EXPECT_EQ(Call("EP_Cancelar"), arrived ? 1 : 0);
  EXPECT_EQ(Report().outcome, arrived ? Outcome::kRefused : Outcome::kDone);
  EXPECT_EQ(Report().cause, arrived ? Cause::kAlreadyClosed : Cause::kNone);
  EXPECT_EQ(Done(), arrived ? "@BE" : "@BD");
}

INSTANTIATE_TEST_SUITE_P(Bytes, ShopWithBadCable, testing::Values(0, 1, 9, LineWorld::kWholeFrame));

// Whatever shows that a command was carried out: its printer is asked, and it is done once.
struct InDoubt {
  const char* story;
  std::string_view family;
  std::vector<std::string_view> before;
  std::string_view call;
  std::string_view done;
};
const std::vector<InDoubt> kInDoubt{
    {"the total has gone down", "TQ", {kOpen, kCoffee}, kDiscount, "@BD"},
    {"perceptions have grown", "TF", {kOpenA, kCoffee}, kPerception, "`bf"},
    {"the number of its kind is the next", "TF", {kOpenA, kCoffee}, kCloseA, "`be"},
    {"notes are not numbered", "FC", {kOpenNote, kCoffee}, kCloseNote, "`be"},
    {"a document is open that has no total", "TQ", {}, kOpenPage, "H"},
    {"one page more", "TQ", {kNumbers, kOpenPage}, "EP_CerrarComprobanteNoFiscal", "HJ"},
    {"a document was cancelled", "TQ", {kNumbers, kOpen, kCoffee}, "EP_Cancelar", "@BD"},
    {"one daily closing more", "TQ", {kNumbers, kOpen, kCoffee, kClose}, "EP_ReporteZ", "@BE9"},
    {"the day has nothing left", "TQ", {kOpen, kCoffee, kClose}, "EP_ReporteZ", "@BE9"},
    {"the line reads so", "TQ", {}, R"(EP_SetEncabezado "Gracias" 11 1)", "]"},
};

class ShopInDoubt : public Shop,
                    public testing::WithParamInterface<std::tuple<InDoubt, std::size_t>> {
 protected:
  static const InDoubt& Row() { return std::get<0>(GetParam()); }
  static impresora::Family FamilyOf(std::string_view letters) {
    if (letters == "FC") return impresora::Family::kForm;
    return letters == "TF" ? impresora::Family::kTicketInvoice : impresora::Family::kTicket;
  }
  ShopInDoubt()
      : Shop({{"TipoComprobante", std::string(Row().family)}}, Mode::kSafe,
             FamilyOf(Row().family)) {}
};

TEST_P(ShopInDoubt, ThePrintersBooksTellAndItIsDoneOnce) {
  for (const auto call : Row().before) ASSERT_EQ(Call(call), 0) << call;
  CallInDoubt(Row().call, std::get<1>(GetParam()));
  EXPECT_EQ(Report().outcome, Outcome::kUnknown) << Row().story;
  EXPECT_TRUE(IsPending()) << Row().story;
  Sell({kNumbers, Row().call});
  EXPECT_EQ(Done(), Row().done) << Row().story;
}

INSTANTIATE_TEST_SUITE_P(Books, ShopInDoubt,
                         testing::Combine(testing::ValuesIn(kInDoubt),
                                          testing::Values(7, LineWorld::kWholeFrame)));

TEST_F(Shop, AClockThatIsPutBackOnItsCableIsSetOnce) {
  World().RunCalendar();
  for (const std::size_t bytes : {std::size_t{7}, LineWorld::kWholeFrame}) {
    UnplugForAMoment(bytes);
    Sell({R"(EP_CambiarFechaHora "261121" "103000")"});
  }
  EXPECT_EQ(Done(), "XX");
}

TEST_F(Shop, WhatWasClosedKeepsNobodyFromTheNextDocument) {
  Sell({kOpen, kCoffee});
  CallInDoubt(kClose);
  Sell({kNumbers, kOpen});
  EXPECT_EQ(Done(), "@BE@");
}

TEST_F(Shop, APrinterThatIsGoneIsNotAskedForever) {
  World().Unplug(LineWorld::kWholeFrame);
  EXPECT_EQ(Call(kNumbers), 1);
  ExpectReport(Outcome::kNotDone, Cause::kPortMissing);
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(Shop, PaperForATextIsWaitedForWithoutAnyBook) {
  Sell({kOpen});
  TakePaperOutFor(kMoment);
  Sell({R"(EP_ImprimirTextoFiscal "Oferta")"});
  EXPECT_EQ(Reports(), 0U);
  EXPECT_EQ(Done(), "@A");
}

TEST_F(Shop, WhoeverPullsTheCableWhilePaperIsOutIsWaitedForToo) {
  Sell({kOpen});
  World().Printer().faults.paper_out = true;
  World().In(kMoment, [&] { World().Unplug(); });
  World().In(kLong, [&] {
    World().PlugIn();
    World().Printer().faults.paper_out = false;
  });
  for (int i = 0; i < 3; ++i) World().GetOperator().Queue(Answer::kRetry);
  Sell({kCoffee});
  EXPECT_EQ(Done(), "@B");
}

TEST_F(Shop, TheRetryIsOneItemAndTheNextOneAlikeIsAnother) {
  Sell({kOpen});
  CallInDoubt(kCoffee);
  Sell({kNumbers, kCoffee, kCoffee, kClose});
  EXPECT_EQ(Done(), "@BBE");
}

TEST_F(Shop, ACommandOfAnotherCallEndsTheRetry) {
  Sell({kOpen});
  CallInDoubt(kCoffee);
  Sell({kNumbers, kBread, kCoffee, kClose});
  EXPECT_EQ(Done(), "@BAABBE");
}

TEST_F(Shop, WhatKestraResolverHasToldIsOpenedAndClosedOnceAndSoldAsOftenAsAsked) {
  for (const auto call : {kOpen, kCoffee, kPay, kClose}) {
    CallInDoubt(call);
    EXPECT_EQ(Call("Kestra_Resolver"), 1);
    Sell({call});
  }
  EXPECT_EQ(number_, "00000001");
  EXPECT_EQ(Done(), "@BBDDE");
}

TEST_F(Shop, WhatIsClosedCannotBeCancelledBehindAQuestionEither) {
  Sell({kOpen, kCoffee});
  CallInDoubt(kClose);
  Sell({kNumbers});
  EXPECT_EQ(Call("EP_Cancelar"), 1);
  EXPECT_EQ(Report().cause, Cause::kAlreadyClosed);
  Sell({kClose});
  EXPECT_EQ(number_, "00000001");
  EXPECT_EQ(Done(), "@BE");
}

TEST_F(Shop, WhatTheBooksCannotTellIsToldToTheSameCallOnce) {
  Sell({kOpen});
  for (const bool asked : {false, true}) {
    CallInDoubt(kCoffee);
    World().Printer().document->lines += 1;
    if (asked) Sell({kNumbers});
    EXPECT_EQ(Call(kCoffee), 1);
    ExpectReport(Outcome::kUnknown, Cause::kBooksDisagree);
    EXPECT_FALSE(IsPending());
    Sell({kCoffee});
  }
  Sell({kClose});
  EXPECT_EQ(Done(), "@BBBBE");
}

TEST_F(Shop, AClockThatMayHaveBeenSetTellsItselfHoweverLate) {
  constexpr std::string_view kSet = R"(EP_CambiarFechaHora "261122" "081500")";
  World().RunCalendar();
  for (const std::size_t bytes : {std::size_t{9}, LineWorld::kWholeFrame}) {
    CallInDoubt(kSet, bytes);
    World().GetClock().Sleep(600'000);
    EXPECT_EQ(Call("Kestra_Resolver"), bytes == LineWorld::kWholeFrame ? 1 : 6);
  }
}

TEST_F(Shop, WhatKestraResolverCannotTellIsToldOnce) {
  Sell({kOpen});
  CallInDoubt(kCoffee);
  World().Printer().document->lines += 1;
  EXPECT_EQ(Call("Kestra_Resolver"), 4);
  Sell({kCoffee, kClose});
  EXPECT_EQ(Done(), "@BBE");
}

TEST_F(Shop, AnOpeningIsNotDoneForAnotherProgramsDocument) {
  Sell({"EP_AbrirComprobanteNoFiscal"});
  Instance().certainty.ledger = {};  // as a program has it that comes after that one
  UnplugForAMoment(9);
  EXPECT_EQ(Call(kOpen), 1);
  ExpectReport(Outcome::kUnknown, Cause::kNoBook);
  EXPECT_EQ(Done(), "H");
}

TEST_F(Shop, ATextThatMayHaveBeenPrintedIsToldOnceAndHoldsNobodyUp) {
  Sell({kOpen});
  World().Unplug(LineWorld::kWholeFrame);
  EXPECT_EQ(Call(R"(EP_ImprimirTextoFiscal "Oferta")"), 1);
  EXPECT_EQ(Report().outcome, Outcome::kUnknown);
  EXPECT_FALSE(IsPending());
  EXPECT_EQ(Boxes(), 1U);
  World().PlugIn();
  Sell({kCoffee, kClose});
  EXPECT_EQ(Done(), "@ABE");
}

TEST_F(Shop, WithoutItsPortNothingIsSent) {
  World().Unplug();
  EXPECT_EQ(Call(kOpen), 1);
  ExpectReport(Outcome::kNotSent, Cause::kPortMissing);
  EXPECT_EQ(Report().attempts, 0);
}

class ShopThatComparesTotals : public Shop {
 protected:
  ShopThatComparesTotals() : Shop({{"ControlarTotal", "1"}}, Mode::kSafe) {}
};

TEST_F(ShopThatComparesTotals, ATotalOfItsOwnIsNotClosed) {
  Sell({kOpen, kCoffee});
  World().Printer().document->bases.front().amount += 100;
  EXPECT_EQ(Call(kClose), 1);
  ExpectReport(Outcome::kNotSent, Cause::kTotalDiffers);
  Sell({"EP_Cancelar", kOpen, kCoffee, kBread, kPay, kClose});
  EXPECT_EQ(Done(), "@BD@BAABDE");
}

TEST_F(ShopThatComparesTotals, APageHasNone) {
  Sell({kOpenPage, "EP_CerrarComprobanteNoFiscal"});
  EXPECT_EQ(World().Frames().size(), 2U);
}

TEST_F(ShopThatComparesTotals, WhatCannotBeAskedForIsNotClosed) {
  Sell({kOpen, kCoffee});
  CallInDoubt(kClose, 1);
  ExpectReport(Outcome::kNotSent, Cause::kPortMissing);
  EXPECT_FALSE(IsPending());
  Sell({kClose});
  EXPECT_EQ(Done(), "@BE");
}

}  // namespace
}  // namespace kestra::line_faults
