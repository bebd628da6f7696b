#include "machine/status.hpp"

#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::Shop;

struct WordCase {
  const char* story;
  bool MachineFaults::*fault;
  std::uint16_t printer;
  std::uint16_t fiscal;
};

TEST(Status, EachConditionShowsInItsWord) {
  constexpr std::array<WordCase, 9> kCases{{
      {"no paper", &MachineFaults::paper_out, 0xC080, 0x0600},
      {"off line", &MachineFaults::offline, 0x8088, 0x0600},
      {"a failure", &MachineFaults::printer_failure, 0x8084, 0x0600},
      {"a full buffer", &MachineFaults::buffer_full, 0x0040, 0x0600},
      {"the slip entry ready", &MachineFaults::slip_entry_ready, 0x0180, 0x0600},
      {"a slip ready", &MachineFaults::slip_ready, 0x0280, 0x0600},
      {"fiscal memory damaged", &MachineFaults::fiscal_memory_check, 0x0080, 0x8601},
      {"work memory damaged", &MachineFaults::work_memory_check, 0x0080, 0x8602},
      {"a low battery", &MachineFaults::low_battery, 0x0080, 0x8604},
  }};
  for (const WordCase& c : kCases) {
    Shop shop;
    shop.printer.Faults().*c.fault = true;
    const Answer answer = shop.Send({"Y"});
    EXPECT_EQ(answer.printer, c.printer) << c.story;
    EXPECT_EQ(answer.fiscal, c.fiscal) << c.story;
    shop.printer.Faults().*c.fault = false;
    EXPECT_EQ(shop.Send({"Y"}).printer, 0x0080) << c.story;
  }
}

TEST(Status, AnErrorLastsForOneAnswer) {
  Shop shop;
  EXPECT_EQ(shop.Send({"?"}).fiscal, 0x8608);
  EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x0600);
}

TEST(Status, WithoutPaperNothingIsSoldUntilThereIsSome) {
  Shop shop;
  shop.OpenTicket();
  shop.printer.Faults().paper_out = true;
  const Answer refused = shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(refused.printer, 0xC084);
  EXPECT_EQ(shop.TicketTotal(), "000000000000");
  shop.printer.Faults().paper_out = false;
  EXPECT_EQ(shop.TicketItem("Pan", "1000", "1000").printer, 0x0080);
  EXPECT_EQ(shop.TicketTotal(), "000000001000");
}

TEST(Status, InWords) {
  EXPECT_EQ(PrinterWords(0xC084), "falla de impresora, buffer vacío, sin papel");
  EXPECT_EQ(FiscalWords(0x9620), "comando no válido para el estado fiscal, documento abierto");
  EXPECT_EQ(FiscalWords(0x0600), "en orden");
}

}  // namespace
}  // namespace impresora
