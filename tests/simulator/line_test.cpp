#include "line/line.hpp"

#include <gtest/gtest.h>

#include <functional>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::Body;
using std::chrono::milliseconds;

class StoppedClock : public WallClock {
 public:
  std::int64_t LocalSeconds() override { return prueba::OpeningTime(); }
};

// A printer on a line, and a time that the test moves by hand.
class Desk {
 public:
  explicit Desk(LineSettings line_settings = {}, Settings settings = {})
      : printer(std::move(settings)), line(printer, clock, line_settings) {}

  std::string Exchange(std::string_view bytes) {
    line.Receive(bytes, now);
    return line.Advance(now);
  }

  StoppedClock clock;
  Printer printer;
  Line line;
  Micros now = milliseconds(1);
};

Settings SlowSettings(std::uint32_t work_milliseconds) {
  Settings settings;
  settings.work_milliseconds.fill(work_milliseconds);
  return settings;
}

TEST(Line, AnInstantPrinterAnswersAtOnce) {
  Desk desk;
  EXPECT_EQ(desk.Exchange(Frame(40, "K")), Frame(40, Body({"K", "0080", "0600"})));
  EXPECT_FALSE(desk.line.NextDue());
}

TEST(Line, ADamagedFrameIsRefusedAndNotCarriedOut) {
  Desk desk;
  std::string frame = Frame(40, "{");
  frame.back() = frame.back() == '0' ? '1' : '0';
  EXPECT_EQ(desk.Exchange(frame), std::string(1, kNak));
  EXPECT_EQ(desk.printer.DrawerOpenings(), 0U);
}

TEST(Line, TheSameFrameAgainRepeatsTheAnswerOnly) {
  Desk desk;
  const std::string answer = desk.Exchange(Frame(40, "{"));
  EXPECT_EQ(desk.Exchange(Frame(40, "{")), answer);
  EXPECT_EQ(desk.printer.DrawerOpenings(), 1U);
  desk.Exchange(Frame(41, "{"));
  EXPECT_EQ(desk.printer.DrawerOpenings(), 2U);
}

TEST(Line, APrinterThatKnowsNoRepeatsCarriesEachFrameOut) {
  Settings settings;
  settings.knows_repeats = false;
  Desk desk({.keep_exchanges = true}, settings);
  const std::string answer = desk.Exchange(Frame(40, "{"));
  EXPECT_EQ(desk.Exchange(Frame(40, "{")), answer);
  EXPECT_EQ(desk.printer.DrawerOpenings(), 2U);
  for (const Exchange& exchange : desk.line.TakeExchanges()) {
    EXPECT_EQ(exchange.kind, ExchangeKind::kExecuted);
  }
}

TEST(Line, AFrameIsASecondTryOnlyWhileTheHostMayStillWaitForItsAnswer) {
  struct TryCase {
    const char* story;
    std::function<void(Desk&)> between;
    unsigned openings;
  };
  const std::vector<TryCase> cases{
      {"the answer was lost", [](Desk&) {}, 1},
      {"after the longest wait of a host", [](Desk& d) { d.now += milliseconds(5'500); }, 1},
      {"refused as damaged in between",
       [](Desk& d) {
         d.Exchange(
             "\x02(x\x03"
             "0000");
       },
       1},
      {"a third try, each after a wait",
       [](Desk& d) {
         d.now += milliseconds(5'500);
         d.Exchange(Frame(40, "{"));
         d.now += milliseconds(5'500);
       },
       1},
      {"the answer was confirmed", [](Desk& d) { d.Exchange("\x06"); }, 2},
      {"much later", [](Desk& d) { d.now += milliseconds(6'001); }, 2},
      {"another host", [](Desk& d) { d.line.Clear(); }, 2},
      {"after a power cut", [](Desk& d) { d.line.SwitchOff(); }, 2},
  };
  for (const TryCase& c : cases) {
    Desk desk;
    desk.Exchange(Frame(40, "{"));
    c.between(desk);
    EXPECT_EQ(desk.Exchange(Frame(40, "{")), Frame(40, Body({"{", "0080", "0600"}))) << c.story;
    EXPECT_EQ(desk.printer.DrawerOpenings(), c.openings) << c.story;
  }
}

TEST(Line, AQuestionIsAnsweredAsThingsAreNow) {
  for (const std::string& question :
       {Body({"Y"}), Body({"*", "N"}), Body({"^", "1"}), Body({"c", "N", prueba::kEmpty})}) {
    Desk desk;
    desk.Exchange(Frame(39, question));
    const std::string before = desk.Exchange(Frame(40, question));
    desk.printer.Faults().low_battery = true;
    const std::string after = desk.Exchange(Frame(40, question));
    EXPECT_NE(after, before) << question;
  }
}

TEST(Line, ASubtotalOnPaperIsPrintedOnce) {
  Desk desk;
  desk.Exchange(Frame(38, Body({"@", "C"})));
  desk.printer.TakePaper();
  desk.Exchange(Frame(39, Body({"C", "P", prueba::kEmpty})));
  desk.Exchange(Frame(39, Body({"C", "P", prueba::kEmpty})));
  EXPECT_EQ(desk.printer.TakePaper().size(), 1U);
}

TEST(Line, AnotherCommandUnderTheSameNumberIsANewCommand) {
  Desk desk;
  desk.Exchange(Frame(40, "K"));
  EXPECT_EQ(desk.Exchange(Frame(40, "Y")),
            Frame(40, Body({"Y", "0080", "0600", "261121", "103000"})));
}

TEST(Line, TheHostsConfirmationIsNoted) {
  Desk desk;
  EXPECT_FALSE(desk.line.Acknowledged());
  desk.Exchange(Frame(40, "K"));
  EXPECT_FALSE(desk.line.Acknowledged());
  desk.Exchange("\x06");
  EXPECT_TRUE(desk.line.Acknowledged());
  desk.Exchange(Frame(41, "K"));
  EXPECT_FALSE(desk.line.Acknowledged());
  EXPECT_EQ(desk.line.Acknowledgements(), 1U);
}

TEST(Line, TwoFramesInOnePieceGetTwoAnswers) {
  Desk desk;
  const std::string two = Frame(40, "K") + "\x06" + Frame(41, "K");
  EXPECT_EQ(desk.Exchange(two),
            Frame(40, Body({"K", "0080", "0600"})) + Frame(41, Body({"K", "0080", "0600"})));
}

TEST(Line, AWorkingPrinterAsksForPatienceUntilItIsDone) {
  Desk desk({}, SlowSettings(1200));
  const std::string busy(1, kDc2);
  const std::string answer = Frame(40, Body({"K", "0080", "0600"}));
  EXPECT_EQ(desk.Exchange(Frame(40, "K")), "");
  EXPECT_EQ(desk.line.NextDue(), desk.now + milliseconds(500));
  EXPECT_EQ(desk.line.Advance(desk.now + milliseconds(499)), "");
  EXPECT_EQ(desk.line.Advance(desk.now + milliseconds(500)), busy);
  EXPECT_EQ(desk.line.Advance(desk.now + milliseconds(1000)), busy);
  EXPECT_EQ(desk.line.NextDue(), desk.now + milliseconds(1200));
  EXPECT_EQ(desk.line.Advance(desk.now + milliseconds(1200)), answer);
  EXPECT_FALSE(desk.line.NextDue());
}

TEST(Line, WhatArrivesWhileWorkingWaitsItsTurn) {
  Desk desk({}, SlowSettings(100));
  desk.Exchange(Frame(40, "K"));
  desk.Exchange(Frame(41, "K"));
  EXPECT_EQ(desk.line.Advance(desk.now + milliseconds(100)),
            Frame(40, Body({"K", "0080", "0600"})));
}

TEST(Line, ASlowLineTakesTenBitsPerByteBothWays) {
  Desk desk({.baud = 9600});
  const std::string frame = Frame(40, "K");                           // 8 bytes
  const std::string answer = Frame(40, Body({"K", "0080", "0600"}));  // 18 bytes
  const Micros byte(1041);
  EXPECT_EQ(desk.Exchange(frame), "");
  const Micros heard = desk.now + 8 * byte;
  EXPECT_EQ(desk.line.Advance(heard - Micros(1)), "");
  EXPECT_EQ(desk.line.Advance(heard), "");
  EXPECT_EQ(desk.line.NextDue(), heard + byte);
  EXPECT_EQ(desk.line.Advance(heard + byte), answer.substr(0, 1));
  EXPECT_EQ(desk.line.Advance(heard + 17 * byte), answer.substr(1, 16));
  EXPECT_EQ(desk.line.Advance(heard + 18 * byte), answer.substr(17));
  EXPECT_FALSE(desk.line.NextDue());
}

}  // namespace
}  // namespace impresora
