#include <gtest/gtest.h>

#include "fiscal/cuit.hpp"
#include "host.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::FamilySettings;
using prueba::kEmpty;
using prueba::Shop;

using Texts = std::vector<std::string>;

std::size_t Count(const std::string& text, std::string_view what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++count;
  }
  return count;
}

std::string OpenWith(std::string_view kind, std::string_view letter, std::string_view copies,
                     std::string_view id_kind, std::string_view id) {
  return Body({"`", kind,    "C", letter, copies,    "F",    "12",   "I",    "I",    "Juan",
               " ", id_kind, id,  "N",    "Calle 1", kEmpty, kEmpty, kEmpty, kEmpty, "C"});
}

// ---- Items ----

TEST(Fiscal, AVoidTakesBackALineOnlyAsItWasSold) {
  struct VoidCase {
    const char* story;
    std::string_view text, quantity, price, rate, internal;
    std::uint16_t fiscal;
  };
  constexpr std::array<VoidCase, 6> kCases{{
      {"as sold", "Vino", "1000", "1000", "2100", "50", 0x3600},
      {"another rate", "Vino", "1000", "1000", "1050", "50", 0xB610},
      {"other internal taxes", "Vino", "1000", "1000", "2100", "0", 0xB610},
      {"another price", "Vino", "1000", "1001", "2100", "50", 0xB610},
      {"another text", "Vinos", "1000", "1000", "2100", "50", 0xB610},
      {"more than sold", "Vino", "2001", "1000", "2100", "50", 0xB610},
  }};
  for (const VoidCase& c : kCases) {
    Shop shop;
    shop.OpenInvoice("T", "A");
    shop.InvoiceItem("Vino", "2000", "1000", "2100", "M", "50");
    EXPECT_EQ(shop.InvoiceItem(c.text, c.quantity, c.price, c.rate, "m", c.internal).fiscal,
              c.fiscal)
        << c.story;
  }
}

TEST(Fiscal, AReturnTakesFromItsOwnRateOnly) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("Yerba", "1000", "10000", "2100");
  shop.InvoiceItem("Envase", "1000", "1000", "2100");
  EXPECT_EQ(shop.InvoiceItem("Envase", "1000", "1000", "1050", "R").fiscal, 0xB610);
  EXPECT_EQ(shop.InvoiceItem("Envase", "1000", "1000", "2100", "R").fiscal, 0x3600);
  EXPECT_EQ(shop.InvoiceTotal(), "000000012100");
}

TEST(Fiscal, ATextWithBytesOfTheLineIsRefused) {
  struct TextCase {
    std::string text;
    std::uint16_t fiscal;
  };
  const std::vector<TextCase> cases{{"Pan", 0x1600},
                                    {"\xF4Pan", 0x1600},
                                    {"Jam\xF3n", 0x1600},
                                    {"Pan\x01", 0x9610},
                                    {"Pan\tcasero", 0x9610},
                                    {std::string("Pan\0", 4), 0x9610},
                                    {"Pan\x7F", 0x9610},
                                    {"\x1B@Pan", 0x9610},
                                    {std::string(81, 'a'), 0x9610},
                                    {std::string(80, 'a'), 0x1600}};
  for (const TextCase& c : cases) {
    Shop shop;
    shop.OpenTicket();
    EXPECT_EQ(shop.TicketItem(c.text, "1000", "1000").fiscal, c.fiscal) << c.text;
  }
}

TEST(Fiscal, PaymentsBeyondMeasureAreRefused) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  for (int i = 0; i < 100; ++i) {
    ASSERT_EQ(shop.Send({"D", "Efectivo", "999999999", "T"}).fiscal, 0x1600) << i;
  }
  EXPECT_EQ(shop.Send({"D", "Efectivo", "999999999", "T"}).fiscal, 0x9640);
}

TEST(Fiscal, TheDaysTotalHasAnEndToo) {
  Shop shop;
  const auto sell = [&shop] {
    shop.OpenTicket();
    const Answer answer = shop.TicketItem("Oro", "99999", "999999999");
    if (answer.fiscal != 0x1600) shop.Send({"D", kEmpty, kEmpty, "C"});
    shop.Send({"E", "T"});
    return answer.fiscal;
  };
  for (int i = 0; i < 10; ++i) ASSERT_EQ(sell(), 0x1600) << i;
  EXPECT_EQ(sell(), 0x9640);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fields.at(4), "999989999000");
  EXPECT_EQ(sell(), 0x1600);
}

TEST(Fiscal, ADiscountOfEverythingLeavesNothingAtAnyRate) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("a", "1000", "3333", "2100");
  shop.InvoiceItem("b", "1000", "3333", "1050");
  shop.InvoiceItem("c", "1000", "1", "2700");
  EXPECT_EQ(shop.Send({"d", "Todo", "6667", "D"}).fiscal, 0x3600);
  EXPECT_EQ(shop.InvoiceTotal(), "000000000000");
}

// ---- Opening ----

TEST(Fiscal, TheCuitIsCheckedWhereTheShopWantsIt) {
  struct CuitCase {
    const char* story;
    std::string_view id_kind, id;
    bool good;
  };
  constexpr std::array<CuitCase, 7> kCases{{
      {"a good one", "CUIT", "20123456786", true},
      {"a wrong digit", "CUIT", "20123456789", false},
      {"two digits exchanged", "CUIT", "02123456786", false},
      {"too short", "CUIL", "2012345678", false},
      {"nothing", "CUIT", "00000000000", false},
      {"an identity card", "DNI", "00012345678", true},
      {"no kind at all", "\x7F", "20123456789", true},
  }};
  Settings strict;
  strict.strict_cuit = true;
  for (const CuitCase& c : kCases) {
    Shop careful(strict);
    Shop easy;
    const std::string body = OpenWith("T", "A", "1", c.id_kind, c.id);
    EXPECT_EQ(careful.SendBody(body).fiscal, c.good ? 0x3600 : 0x8610) << c.story;
    EXPECT_EQ(easy.SendBody(body).fiscal, 0x3600) << c.story;
  }
}

TEST(Fiscal, ARefusedOpeningUsesUpNoNumber) {
  Settings strict;
  strict.strict_cuit = true;
  Shop shop(strict);
  shop.SendBody(OpenWith("T", "A", "1", "CUIT", "20123456789"));
  shop.SendBody(OpenWith("T", "A", "1", "CUIT", "20123456786"));
  shop.InvoiceItem("Pan", "1000", "1000");
  EXPECT_EQ(shop.CloseInvoice().fields, (Texts{"00000001"}));
}

TEST(Fiscal, NothingIsOpenedWithADamagedMemory) {
  for (bool MachineFaults::*const fault :
       {&MachineFaults::fiscal_memory_check, &MachineFaults::work_memory_check}) {
    Shop shop;
    shop.printer.Faults().*fault = true;
    EXPECT_EQ(shop.OpenTicket().fiscal & 0xF020U, 0x8020U);
    EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal & 0xF020U, 0x8020U);
    EXPECT_EQ(shop.Send({"9", "X", "P"}).fiscal & 0x0020U, 0U);
  }
}

// ---- Sheets ----

// The carried figure is what the lines above it add up to, with IVA or without as they have it.
TEST(Fiscal, TheTransportCarriesWhatTheLinesAddUpTo) {
  const std::vector<std::pair<std::string_view, std::string_view>> cases{{"A", "103,00"},
                                                                         {"B", "103,00"}};
  for (const auto& [letter, carried] : cases) {
    Shop shop(FamilySettings(Family::kForm));
    shop.OpenInvoice("F", letter);
    shop.InvoiceItem("uno", "1000", "10000");
    shop.Send({"f", "IIBB", "O", "300", "0000"});
    shop.PaperText();
    const std::string figure = std::string(80 - 30 - carried.size(), ' ').append(carried) + "\n";
    EXPECT_EQ(shop.Send({"\\", "D", "P", "T", "T"}).fiscal, 0x3600);
    EXPECT_EQ(Count(shop.PaperText(), "Transporte a la hoja siguiente" + figure), 1U) << letter;
    EXPECT_EQ(shop.Send({"\\", "D", "P", "T", "O"}).fiscal, 0x3600);
    EXPECT_EQ(Count(shop.PaperText(), "Transporte de la hoja anterior" + figure), 1U) << letter;
  }
}

// ---- Copies ----

TEST(Fiscal, CopiesAreFurtherPapersOfTheSame) {
  Shop shop(FamilySettings(Family::kForm));
  shop.SendBody(OpenWith("F", "A", "3", "CUIT", "20123456789"));
  shop.InvoiceItem("Resma", "1000", "1000");
  const std::string open = shop.PaperText();
  shop.Send({"d", "Efectivo", "2000", "T"});
  EXPECT_EQ(shop.CloseInvoice("F", "A").fields, (Texts{"00000001"}));
  const std::string paper = open + shop.PaperText();
  EXPECT_EQ(Count(paper, "FACTURA \"A\""), 3U);
  EXPECT_EQ(Count(paper, "Resma"), 3U);
  EXPECT_EQ(Count(paper, "Su vuelto"), 3U);
  EXPECT_EQ(Count(paper, "DUPLICADO"), 1U);
  EXPECT_EQ(Count(paper, "TRIPLICADO"), 1U);
  EXPECT_EQ(shop.Send({"*", "D"}).fields.at(0), "00001");
}

TEST(Fiscal, EverySheetOfACopySaysThatItIsOne) {
  Shop shop(FamilySettings(Family::kForm));
  shop.Send({"]", "1", "SIN VALIDEZ FISCAL"});
  shop.SendBody(OpenWith("F", "A", "3", "CUIT", "20123456789"));
  shop.InvoiceItem("Resma", "1000", "1000");
  shop.Send({"\\", "D", "P", "T", "T"});
  shop.Send({"R", "2"});
  shop.Send({"\\", "D", "P", "T", "O"});
  shop.InvoiceItem("Tinta", "1000", "1000");
  shop.PaperText();
  shop.CloseInvoice("F", "A");
  const std::string paper = shop.PaperText();
  EXPECT_EQ(Count(paper, "FACTURA \"A\""), 4U);
  EXPECT_EQ(Count(paper, "DUPLICADO"), 2U);
  EXPECT_EQ(Count(paper, "TRIPLICADO"), 2U);
}

TEST(Fiscal, OneCopyIsThePaperItself) {
  Shop shop(FamilySettings(Family::kForm));
  shop.SendBody(OpenWith("F", "A", "1", "CUIT", "20123456789"));
  shop.InvoiceItem("Resma", "1000", "1000");
  shop.CloseInvoice("F", "A");
  const std::string paper = shop.PaperText();
  EXPECT_EQ(Count(paper, "FACTURA \"A\""), 1U);
  EXPECT_EQ(Count(paper, "DUPLICADO"), 0U);
}

// ---- The shop's own lines ----

TEST(Fiscal, TheIssuersConditionIsOnPaperAndInItsAnswer) {
  const std::vector<std::pair<char, std::string_view>> cases{
      {'I', "IVA RESPONSABLE INSCRIPTO\n"},
      {'M', "RESPONSABLE MONOTRIBUTO\n"},
      {'E', "IVA EXENTO\n"},
      {'Q', "OTRA CONDICIÓN ANTE EL IVA\n"},
  };
  for (const auto& [letter, words] : cases) {
    Settings settings;
    settings.owner_iva = letter;
    Shop shop(settings);
    shop.OpenTicket();
    EXPECT_EQ(Count(shop.PaperText(), words), 1U) << letter;
    EXPECT_EQ(shop.Send({"*", "C"}).fields.at(2), std::string(1, letter));
  }
}

TEST(Fiscal, LinesUpToTenStandAboveAndTheOthersBelow) {
  Shop shop;
  shop.Send({"]", "10", "Arriba"});
  shop.Send({"]", "11", "Abajo"});
  shop.Send({"]", "20", "Al final"});
  EXPECT_EQ(shop.Send({"^", "20"}).fields, (Texts{"20", "Al final"}));
  EXPECT_EQ(shop.Send({"]", "21", "Nada"}).fiscal, 0x8610);
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  shop.Send({"E", "T"});
  const std::string paper = shop.PaperText();
  const std::size_t above = paper.find("Arriba");
  const std::size_t title = paper.find("TIQUE");
  const std::size_t total = paper.find("T O T A L");
  const std::size_t below = paper.find("Abajo");
  EXPECT_LT(above, title);
  EXPECT_LT(total, below);
  EXPECT_LT(below, paper.find("Al final"));
}

// ---- Clock ----

TEST(Fiscal, TheClockDoesNotGoBackBehindWhatIsRecorded) {
  Shop shop;
  EXPECT_EQ(shop.Send({"X", "261120", "090000"}).fiscal, 0x0600);  // nothing recorded yet
  EXPECT_EQ(shop.Send({"X", "261121", "090000"}).fiscal, 0x0600);
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  shop.Send({"E", "T"});
  EXPECT_EQ(shop.Send({"X", "261121", "085959"}).fiscal, 0x8620);
  EXPECT_EQ(shop.Send({"X", "261121", "090001"}).fiscal, 0x0600);
  EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, 0x0600);
  shop.now += 60;
  EXPECT_EQ(shop.Send({"X", "261121", "090000"}).fiscal, 0x8620);
  EXPECT_EQ(shop.Send({"X", "261121", "090001"}).fiscal, 0x0600);
  EXPECT_EQ(shop.Send({"Y"}).fields, (Texts{"261121", "090001"}));
}

// ---- Reports ----

TEST(Fiscal, AnAuditInTotalsLeavesTheClosingsOut) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  shop.Send({"E", "T"});
  shop.Send({"9", "Z", "P"});
  shop.PaperText();
  for (const auto& body : {Body({";", "1", "9", "T"}), Body({":", "261101", "261130", "T"})}) {
    EXPECT_EQ(shop.SendBody(body).fields, (Texts{"00001"}));
    const std::string paper = shop.PaperText();
    EXPECT_EQ(Count(paper, "Z Nº"), 0U);
    EXPECT_EQ(Count(paper, "TOTAL VENTAS                     $ 10,00"), 1U) << paper;
  }
}

// ---- Receipts ----

TEST(Fiscal, EachFinishedDocumentLeavesAReceipt) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "12100");
  shop.Send({"E", "T"});
  shop.OpenInvoice("M", "B");
  shop.InvoiceItem("Pan", "1000", "1210");
  shop.CloseInvoice("M", "B");
  shop.OpenTicket();
  shop.Send({"D", kEmpty, kEmpty, "C"});
  shop.Send({"H"});
  shop.Send({"J", "T"});
  shop.Send({"9", "X", "N"});
  shop.Send({"9", "X", "P"});
  shop.Send({"9", "Z", "P"});
  std::string told;
  for (const Receipt& r : shop.printer.TakeReceipts()) {
    told += std::to_string(r.ordinal) + " " + r.kind;
    if (r.letter != '\0') told.append(" ").append(1, r.letter);
    told += " " + std::to_string(r.number) + " " + std::to_string(r.total) + " " +
            std::to_string(r.iva) + (r.cancelled ? " cancelado\n" : "\n");
  }
  EXPECT_EQ(told,
            "1 TIQUE B 1 12100 2100\n"
            "2 TIQUE NOTA DE CRÉDITO B 1 1210 210\n"
            "3 TIQUE B 2 0 0 cancelado\n"
            "4 DOCUMENTO NO FISCAL 0 0 0\n"
            "5 INFORME X 1 12100 2100\n"
            "6 CIERRE Z 1 12100 2100\n");
  EXPECT_TRUE(shop.printer.TakeReceipts().empty());
}

TEST(Fiscal, AReceiptKnowsWhoBoughtAndWhen) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("Pan", "1000", "1000");
  shop.now += 60;
  shop.CloseInvoice();
  const std::vector<Receipt> receipts = shop.printer.TakeReceipts();
  ASSERT_EQ(receipts.size(), 1U);
  EXPECT_EQ(receipts[0].customer_id, "20123456789");
  EXPECT_EQ(receipts[0].moment, shop.now);
  EXPECT_EQ(receipts[0].code, 'T');
}

TEST(Fiscal, AfterAPowerCutTheDocumentIsStillOpen) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  shop.PaperText();
  shop.printer.Restart();
  EXPECT_EQ(shop.PaperText(), "        *** CORTE DE ENERGÍA ***\n");
  EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x1600);
  EXPECT_EQ(shop.Send({"E", "T"}).fields, (Texts{"00000001"}));
  shop.PaperText();
  shop.printer.Restart();
  EXPECT_EQ(shop.PaperText(), "");
}

}  // namespace
}  // namespace impresora
