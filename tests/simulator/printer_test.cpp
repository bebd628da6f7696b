// What the stories cannot tell: what goes through tables of the printer, or depends on its answers.
#include <gtest/gtest.h>

#include "host.hpp"
#include "machine/roll.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

using prueba::FamilySettings;
using prueba::Shop;

TEST(Paper, TextIsSetWithinItsColumns) {
  Paper paper(10);
  paper.Line("0123456789abc");
  paper.Center("año");
  paper.Split("descripción", "1,00");
  paper.Split("12345", "1,00");
  paper.Split("descripción más larga", "1,00");
  paper.CenterHostText(
      "\xF4"
      "ABC");
  paper.CenterHostText(
      "\xF4"
      "DEFGHIJ");
  paper.HostText("  \xF1 ");
  paper.HostText("a         ");
  std::vector<std::string> lines;
  for (const PaperLine& line : paper.Take()) lines.push_back(AsText(line, paper.Width()));
  EXPECT_EQ(lines,
            (std::vector<std::string>{"0123456789", "abc", "   año", "descripció", "n     1,00",
                                      "12345 1,00", "descripció", "n más larg", "a     1,00",
                                      "  A B C", "D E F G H", "   I J", "  ñ", "a"}));
  EXPECT_TRUE(paper.Take().empty());
}

// The host brings the printer's total to its own, as it does at the end of a document.
TEST(Documents, TheTotalCanBeBroughtToAnyHundredth) {
  for (const int wanted : {10'005, 10'019, 10'000, 9'987}) {
    Shop shop;
    shop.OpenInvoice("T", "A");
    shop.InvoiceItem("Yerba", "1000", "5005", "2100");
    shop.InvoiceItem("Pan", "1000", "3580", "1050");
    int rounds = 0;
    for (; rounds < 5; ++rounds) {
      const int total = std::stoi(shop.InvoiceTotal());
      if (total == wanted) break;
      const std::string difference = std::to_string(std::abs(wanted - total));
      if (total < wanted) {
        shop.Send({"f", "Ajuste por redondeo", "O", "00" + difference, "0000"});
      } else {
        shop.Send({"d", "Ajuste por Redondeo", "00" + difference, "D"});
      }
    }
    EXPECT_LT(rounds, 5) << wanted;
  }
}

TEST(Reports, EverySeriesThatWasUsedIsOnPaper) {
  Shop shop(FamilySettings(Family::kForm));
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

TEST(Status, InWords) {
  EXPECT_EQ(PrinterWords(0xC084), "falla de impresora, buffer vacío, sin papel");
  EXPECT_EQ(FiscalWords(0x9620), "comando no válido para el estado fiscal, documento abierto");
  EXPECT_EQ(FiscalWords(0x0600), "en orden");
}

}  // namespace
}  // namespace impresora
