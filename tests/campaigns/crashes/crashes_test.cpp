#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string_view>

#include "campaigns/crashes/days.hpp"
#include "campaigns/crashes/shop.hpp"
#include "campaigns/crashes/story.hpp"
#include "kestra/kestra.h"

namespace kestra::crashes {
namespace {

const CanonicalDocument& Ticket() {
  return line_faults::CanonicalDocuments().front();
}

// The ticket with a disaster at each so-manieth place.
template <typename Set>
std::set<Ending> Endings(const Story& story, std::size_t places, Set set) {
  constexpr std::size_t kEvery = 29;
  std::set<Ending> endings;
  for (std::size_t place = 0; place < places; place += kEvery) {
    Disaster disaster;
    set(disaster, place);
    endings.insert(story.Play(disaster).ending);
  }
  return endings;
}
std::set<Ending> Deaths(const Story& story, bool asks = true) {
  return Endings(story, story.Moments(), [asks](Disaster& disaster, std::size_t moment) {
    disaster = {.death = moment, .asks = asks};
  });
}
std::set<Ending> Cuts(const Story& story, Breakage kind, bool passes = false) {
  const auto direction = Direction::kToPrinter;
  return Endings(story, story.Bytes(direction), [&](Disaster& disaster, std::size_t byte) {
    disaster = {.breakdown = Breakdown{direction, byte, kind}, .passes = passes};
  });
}

TEST(Story, AHostMayDieAtAnyStep) {
  const Story story(Ticket(), Mode::kSafe);
  EXPECT_EQ(Deaths(story), (std::set{Ending::kDone, Ending::kNotDone, Ending::kUnknown,
                                     Ending::kUnsent, Ending::kUnlearnt}));
  EXPECT_EQ(Deaths(story, false),
            (std::set{Ending::kRepeated, Ending::kUnknown, Ending::kUnsent, Ending::kUnlearnt}));
}

// What it prints afterwards shows another hour.
TEST(Story, AClockMayBeInDoubtAtAnyStep) {
  const auto documents = line_faults::CanonicalDocuments();
  const auto clock = std::find_if(documents.begin(), documents.end(), [](const auto& document) {
    return document.name == "Header, clock, paper, model";
  });
  ASSERT_NE(clock, documents.end());
  const Story story(*clock, Mode::kSafe);
  EXPECT_EQ(Deaths(story).count(Ending::kWrong), 0U);
  EXPECT_EQ(Cuts(story, Breakage::kCut).count(Ending::kWrong), 0U);
}

TEST(Story, ALineMayEndAtAnyByte) {
  const Story story(Ticket(), Mode::kSafe);
  EXPECT_EQ(Cuts(story, Breakage::kCut).count(Ending::kWrong), 0U);
  EXPECT_EQ(Cuts(story, Breakage::kPowerless, true), (std::set{Ending::kPassed, Ending::kUnknown}));
}

TEST(Story, TheFirstStepOfAllSendsNothing) {
  const auto told = Story(Ticket(), Mode::kSafe).Play({.death = 0});
  EXPECT_EQ(told.ending, Ending::kUnsent);
  EXPECT_EQ(told.last_act, Act::kJournal);
}

// A bit of a digit up, the same bit of another one down: the sum is the same.
TEST(Story, TwoFaultsInAnAmountAreShownByTheTotal) {
  const Story story(Ticket(), Mode::kSafe, {{"Diario", "diario.txt"}, {"ControlarTotal", "1"}});
  constexpr std::uint8_t kBit = 0x01;
  std::set<Ending> endings;
  for (std::size_t byte = 60; byte < 140; ++byte) {
    const std::array faults{
        line_faults::ByteFault{Direction::kToPrinter, byte, line_faults::FaultKind::kFlip, kBit},
        line_faults::ByteFault{Direction::kToPrinter, byte + 1, line_faults::FaultKind::kFlip,
                               kBit}};
    endings.insert(story.Play({.faults = faults}).ending);
  }
  EXPECT_EQ(endings.count(Ending::kTotalDiffers), 1U);
  EXPECT_EQ(endings.count(Ending::kWrong), 0U);
}

TEST(Story, DaysOfManyTroublesEndWithThePaperOfGoodOnes) {
  constexpr std::size_t kDocuments = 8;
  std::mt19937_64 random(1);
  for (std::uint64_t storm = 0; storm < 12; ++storm) {
    const Story story(AnyDay(random, kDocuments), Mode::kSafe);
    ASSERT_TRUE(story.GoesWell());
    EXPECT_EQ(story.Play({.storm = storm}).wrong, "");
  }
}

// A cancelled ticket spends its number as a closed one does.
TEST(Shop, CountersThatADeadProgramHasHeardTellAClosingFromACancelling) {
  auto document = Ticket();
  document.configuration.insert(document.configuration.end(), kJournal.begin(), kJournal.end());
  const std::string &open = document.calls[0], &item = document.calls[1],
                    &close = document.calls.back();
  Shop shop(document, Mode::kSafe);
  shop.Start();
  ASSERT_EQ(shop.Call("EP_Numeracion out").result, 0);
  shop.Start();
  for (const auto& call : {open, item, std::string("EP_Cancelar"), open, item})
    ASSERT_EQ(shop.Call(call).result, 0) << call;
  shop.World().Break({Direction::kToHost, shop.World().ToHost().Carried(), Breakage::kCut});
  EXPECT_EQ(shop.Call(close).outcome, KESTRA_DESENLACE_DESCONOCIDO);
  shop.World().Mend();
  shop.Start();
  std::string number;
  EXPECT_EQ(shop.Resolve(number), KESTRA_DESENLACE_HECHO);
  EXPECT_EQ(number, "00000002");
}

// The intent's own moment tells where the clock would be by now.
TEST(Shop, AClockThatADeadProgramWasSettingTellsItself) {
  constexpr std::string_view kSet = R"(EP_CambiarFechaHora "261121" "103000")";
  constexpr std::size_t kIntoTheFrame = 9;
  for (const auto direction : {Direction::kToPrinter, Direction::kToHost}) {
    const bool arrives = direction == Direction::kToHost;
    CanonicalDocument document{"a clock", impresora::Family::kTicketInvoice, kJournal, {}};
    document.calls.emplace_back(kSet);
    Shop shop(document, Mode::kSafe);
    shop.Start();
    shop.World().Break({direction, arrives ? 0 : kIntoTheFrame, Breakage::kCut});
    EXPECT_EQ(shop.Call(kSet).outcome, KESTRA_DESENLACE_DESCONOCIDO);
    shop.World().Mend();
    shop.World().GetClock().Sleep(600'000);
    shop.Start();
    std::string name, number;
    EXPECT_EQ(shop.Pending(name), 1);
    EXPECT_EQ(shop.Resolve(number), arrives ? KESTRA_DESENLACE_HECHO : KESTRA_DESENLACE_NO_HECHO);
  }
}

// What the campaign is there to find.
TEST(Story, TheBaseModeIsFoundOut) {
  EXPECT_EQ(Cuts(Story(Ticket(), Mode::kBase), Breakage::kCut).count(Ending::kWrong), 1U);
}

TEST(Story, AMissingJournalIsFoundOut) {
  EXPECT_EQ(Deaths(Story(Ticket(), Mode::kSafe, {})).count(Ending::kWrong), 1U);
}

}  // namespace
}  // namespace kestra::crashes
