#include "line/line.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "booth.hpp"

namespace impresora {
namespace {

using prueba::Body;
using std::chrono::milliseconds;

// A printer on a line, and a time that the test moves by hand.
class Desk {
 public:
  explicit Desk(LineSettings line_settings = {}, Settings settings = {})
      : printer(std::move(settings)), line(printer, clock, line_settings) {}

  std::string Exchange(std::string_view bytes) {
    line.Receive(bytes, now);
    return line.Advance(now);
  }

  prueba::StoppedClock clock;
  Printer printer;
  Line line;
  Micros now = milliseconds(1);
};

TEST(Line, AnInstantPrinterAnswersAtOnce) {
  Desk desk;
  EXPECT_EQ(desk.Exchange(Frame(40, "K")), Frame(40, Body({"K", "0080", "0600"})));
  EXPECT_FALSE(desk.line.NextDue());
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
