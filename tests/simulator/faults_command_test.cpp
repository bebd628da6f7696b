// Rules that keep commands from the printer, change the printer itself, or take its power away.
#include <gtest/gtest.h>

#include "faults.hpp"
#include "machine/controls.hpp"

namespace impresora {
namespace {

using prueba::Bench;
using prueba::Body;
using std::chrono::seconds;

std::string Plain(std::uint8_t sequence, std::string_view command) {
  return Frame(sequence, Body({command, "0080", "0600"}));
}

TEST(FaultsOfCommands, ALostCommandIsNeitherCarriedOutNorAnswered) {
  Bench bench("comando 2 de {: perder");
  EXPECT_EQ(bench.All(40, {"{"}), Plain(40, "{"));
  EXPECT_EQ(bench.All(41, {"{"}), "");
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 1U);
  EXPECT_EQ(bench.All(41, {"{"}), Plain(41, "{"));
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 2U);
}

TEST(FaultsOfCommands, ARefusedCommandIsNotCarriedOut) {
  Bench bench("comando 1: nak");
  EXPECT_EQ(bench.All(40, {"{"}), std::string(1, kNak));
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 0U);
}

TEST(FaultsOfCommands, SilenceComesAfterTheCommandWasCarriedOut) {
  Bench bench("respuesta 1: callar");
  EXPECT_EQ(bench.All(40, {"{"}), "");
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 1U);
  EXPECT_EQ(bench.All(40, {"{"}), Plain(40, "{"));
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 1U);
}

struct EndCase {
  std::string_view rule;
  unsigned drawers;
  bool hung_up;
  bool powered_off;
};

TEST(FaultsOfCommands, ThePlugOrThePowerGoesBeforeOrAfterTheCommand) {
  const std::vector<EndCase> cases{
      {"comando 1: desenchufar", 0, true, false},
      {"respuesta 1: desenchufar", 1, true, false},
      {"comando 1: apagar", 0, false, true},
      {"respuesta 1: apagar", 1, false, true},
  };
  for (const EndCase& c : cases) {
    SCOPED_TRACE(c.rule);
    Bench bench(c.rule);
    EXPECT_EQ(bench.All(40, {"{"}), "");
    EXPECT_EQ(bench.hung_up, c.hung_up);
    EXPECT_EQ(bench.powered_off, c.powered_off);
    EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), c.drawers);
    EXPECT_EQ(bench.All(41, {"K"}), Plain(41, "K"));
  }
}

TEST(FaultsOfCommands, WithoutPowerNobodyListens) {
  Bench bench("respuesta 1: apagar 5 s");
  bench.session.Receive(Frame(40, "K"), bench.now);
  EXPECT_TRUE(bench.session.Advance(bench.now).power_off);
  bench.session.Tell();
  EXPECT_EQ(bench.session.NextDue(), bench.now + seconds(5));
  bench.session.Receive(Frame(41, "{"), bench.now + seconds(4));
  EXPECT_EQ(bench.session.Advance(bench.now + seconds(4)).bytes, "");
  bench.session.Receive(Frame(42, "K"), bench.now + seconds(5));
  EXPECT_EQ(bench.session.Advance(bench.now + seconds(5)).bytes, Plain(42, "K"));
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 0U);
}

TEST(FaultsOfCommands, APowerCutInMidDocumentLeavesItOpen) {
  Bench bench("comando 1 de B en tique: apagar");
  bench.Hear(40, {"@", "C"});
  EXPECT_EQ(bench.All(41, {"B", "Pan", "1000", "1000", "2100", "M", "1", "0", "0"}), "");
  EXPECT_TRUE(bench.powered_off);
  EXPECT_EQ(bench.session.GetPrinter().GetStage(), Stage::kTicketItems);
  EXPECT_EQ(bench.session.GetPrinter().GetMachine().document->lines, 0);
}

TEST(FaultsOfCommands, APrinterThatWasOffHasForgottenItsLastAnswer) {
  Bench bench("respuesta 1: apagar");
  bench.All(40, {"{"});
  bench.All(40, {"{"});
  EXPECT_EQ(bench.session.GetPrinter().DrawerOpenings(), 2U);
}

TEST(FaultsOfThePrinter, PaperThatEndsBeforeTheCommandKeepsItFromPrinting) {
  Bench bench("comando 2: sin_papel\ncomando 3: sin_papel = no");
  EXPECT_EQ(bench.All(40, {"K"}), Plain(40, "K"));
  EXPECT_EQ(bench.All(41, {"K"}), Frame(41, Body({"K", "C084", "0600"})));
  EXPECT_EQ(bench.All(42, {"K"}), Plain(42, "K"));
}

TEST(FaultsOfThePrinter, PaperThatEndsAfterTheCommandShowsInItsAnswer) {
  Bench bench("respuesta 1: sin_papel");
  EXPECT_EQ(bench.All(40, {"K"}), Frame(40, Body({"K", "C080", "0600"})));
  EXPECT_TRUE(bench.session.GetPrinter().GetMachine().faults.paper_out);
}

TEST(FaultsOfThePrinter, ChangingItLeavesTheCommandsOwnErrorAlone) {
  Bench bench("respuesta 1: bateria_baja\nrespuesta 2: bateria_baja = no");
  EXPECT_EQ(bench.All(40, {"?"}), Frame(40, Body({"?", "0080", "860C"})));
  EXPECT_EQ(bench.All(41, {"?"}), Frame(41, Body({"?", "0080", "8608"})));
}

TEST(FaultsOfThePrinter, ABitStaysUntilItIsLetGo) {
  Bench bench(
      "respuesta 1: encender fiscal_bateria_baja desde ahora\n"
      "comando 3: soltar fiscal 0004");
  EXPECT_EQ(bench.All(40, {"K"}), Frame(40, Body({"K", "0080", "8604"})));
  EXPECT_EQ(bench.All(41, {"K"}), Frame(41, Body({"K", "0080", "8604"})));
  EXPECT_EQ(bench.All(42, {"K"}), Plain(42, "K"));
}

TEST(FaultsOfThePrinter, ABitCanBeHeldDown) {
  Bench bench("comando 1: borrar fiscal_certificada desde ahora");
  EXPECT_EQ(bench.All(40, {"K"}), Frame(40, Body({"K", "0080", "0400"})));
  EXPECT_EQ(bench.All(41, {"K"}), Frame(41, Body({"K", "0080", "0400"})));
}

TEST(FaultsOfLines, APrintedLineSetsTheRuleOff) {
  Bench bench("renglón 5: sin_papel\nrenglón 8: callar");
  EXPECT_EQ(bench.All(40, {"R", "4"}), Plain(40, "R"));
  EXPECT_EQ(bench.All(41, {"R", "1"}), Frame(41, Body({"R", "C080", "0600"})));
  bench.session.GetPrinter().Set(*FindControl("sin_papel"), 0);
  EXPECT_EQ(bench.All(42, {"R", "9"}), "");
  EXPECT_EQ(bench.All(43, {"R", "9"}), Plain(43, "R"));
}

TEST(FaultsOfLines, EveryHundredthLineCountsOncePerCommand) {
  Bench bench("cada 10 renglones: callar");
  EXPECT_EQ(bench.All(40, {"R", "9"}), Plain(40, "R"));
  EXPECT_EQ(bench.All(41, {"R", "30"}), "");
  EXPECT_EQ(bench.All(42, {"Y"}).size(), 32U);
  EXPECT_EQ(bench.session.Faults().Rules().at(0).due, 1U);
}

}  // namespace
}  // namespace impresora
