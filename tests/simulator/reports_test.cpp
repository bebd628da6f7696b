#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::kEmpty;
using prueba::Shop;

using Texts = std::vector<std::string>;

void SellTicket(Shop& shop, std::string_view price) {
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", price, "2100");
  shop.Send({"E", "T"});
}

void IssueCreditNote(Shop& shop, std::string_view price) {
  shop.OpenInvoice("M", "B");
  shop.InvoiceItem("Pan", "1000", price, "2100");
  shop.CloseInvoice("M", "B");
}

TEST(Reports, TheDayInFigures) {
  Shop shop;
  SellTicket(shop, "12100");
  SellTicket(shop, "6050");
  IssueCreditNote(shop, "1210");
  shop.OpenTicket();
  shop.Send({"D", kEmpty, kEmpty, "C"});
  shop.Send({"H"});
  shop.Send({"J", "T"});
  const Answer x = shop.Send({"9", "X", "P"});
  EXPECT_EQ(x.fields, (Texts{"00001", "00001", "00001", "00003", "000000018150", "000000003150",
                             "000000000000", "00001", "000000001210", "000000000210"}));
}

TEST(Reports, TheXChangesNothingAndTheZBeginsANewDay) {
  Shop shop;
  SellTicket(shop, "12100");
  const Answer x = shop.Send({"9", "X", "P"});
  const Answer z = shop.Send({"9", "Z", "P"});
  EXPECT_EQ(x.fields, z.fields);
  const Answer after = shop.Send({"9", "X", "P"});
  EXPECT_EQ(after.fields.at(0), "00002");
  EXPECT_EQ(after.fields.at(4), "000000000000");
  SellTicket(shop, "100");
  EXPECT_EQ(shop.Send({"*", "A"}).fields.at(1), "00000002");
}

TEST(Reports, TheDayMustBeClosedWithinADay) {
  Shop shop;
  SellTicket(shop, "100");
  shop.now += kSecondsPerDay - 1;
  EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x0600);
  shop.now += 1;
  EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x8E00);
  EXPECT_EQ(shop.OpenTicket().fiscal, 0x8E20);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x0600);
  EXPECT_EQ(shop.OpenTicket().fiscal, 0x1600);
}

TEST(Reports, TheFiscalMemoryFillsUp) {
  Settings settings;
  settings.closings_left = 31;
  Shop shop(settings);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x0600);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x0700);
  for (int left = 29; left > 1; --left) shop.Send({"9", "Z", "P"});
  EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x0700);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x8780);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x87A0);
  EXPECT_EQ(shop.OpenTicket().fiscal, 0x87A0);
  EXPECT_EQ(shop.Send({"9", "X", "P"}).fields.at(0), "00032");
}

TEST(Reports, ClosingsByNumberAndByDate) {
  Shop shop;
  for (int day = 0; day < 4; ++day) {
    SellTicket(shop, "1000");
    shop.Send({"9", "Z", "P"});
    shop.now += kSecondsPerDay;
  }
  EXPECT_EQ(shop.Send({";", "2", "9", "D"}).fields, (Texts{"00003"}));
  EXPECT_EQ(shop.Send({";", "5", "9", "D"}).fields, (Texts{"00000"}));
  EXPECT_EQ(shop.Send({":", "261122", "261123", "D"}).fields, (Texts{"00002"}));
  shop.PaperText();
  shop.Send({";", "1", "2", "D"});
  const std::string paper = shop.PaperText();
  EXPECT_NE(paper.find("Z Nº 00001                    21/11/2026"), std::string::npos) << paper;
  EXPECT_NE(paper.find("TOTAL VENTAS                     $ 20,00"), std::string::npos) << paper;
}

TEST(Reports, EverySeriesThatWasUsedIsOnPaper) {
  Shop shop(prueba::FamilySettings(Family::kForm));
  std::vector<std::string> wanted;
  for (const DocumentKind& kind : kInvoiceKinds) {
    if ((kind.families & kOnForms) == 0) continue;
    for (const char letter : kind.letters) {
      const std::string code(1, kind.code);
      const std::string on(1, letter);
      shop.OpenInvoice(code, on);
      shop.InvoiceItem("Cajas", "1000", "0", "0");
      shop.CloseInvoice(code, on);
      std::string line(kind.series == Series::kDeliveryNote ? "Último remito "
                       : kind.series == Series::kOther      ? "Último comprobante "
                       : kind.series == Series::kInvoice    ? "Última factura "
                       : kind.series == Series::kDebitNote  ? "Última nota de débito "
                                                            : "Última nota de crédito ");
      wanted.push_back(line + letter + " ");
    }
  }
  for (const std::string_view type : {"X", "Z"}) {
    shop.PaperText();
    shop.Send({"9", type, "P"});
    const std::string paper = shop.PaperText();
    for (const std::string& line : wanted) {
      EXPECT_NE(paper.find(line), std::string::npos) << type << ": " << line;
    }
  }
}

TEST(Reports, CountersAreNumbersInTheirPlaces) {
  Shop shop;
  SellTicket(shop, "1000");
  IssueCreditNote(shop, "1000");
  const Texts counters = shop.Send({"*", "A"}).fields;
  EXPECT_EQ(counters, (Texts{"00000", "00000001", "00000000", "00000000", "00000000", "00000",
                             "00000", "00000000", "00000001", "00000000", "00000000"}));
}

// A host that was not told how its close ended compares the counter with the one before.
TEST(Reports, ACounterGoesOnWhenItsDocumentIsFinished) {
  Shop shop;
  const auto last_ticket = [&shop] { return shop.Send({"*", "A"}).fields.at(1); };
  SellTicket(shop, "1000");
  shop.OpenTicket();
  EXPECT_EQ(last_ticket(), "00000001");
  shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(last_ticket(), "00000001");
  shop.Send({"E", "T"});
  EXPECT_EQ(last_ticket(), "00000002");
  shop.OpenTicket();
  shop.Send({"D", kEmpty, kEmpty, "C"});
  EXPECT_EQ(last_ticket(), "00000003");
  shop.OpenInvoice("T", "A");
  EXPECT_EQ(last_ticket(), "00000003");
}

}  // namespace
}  // namespace impresora
