#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::FamilySettings;
using prueba::kEmpty;
using prueba::Shop;

using Texts = std::vector<std::string>;

TEST(Documents, AWholeTicket) {
  Shop shop;
  EXPECT_EQ(shop.OpenTicket().fiscal, 0x1600);
  EXPECT_EQ(shop.TicketItem("Yerba", "2000", "1050").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketItem("Pan", "500", "10000", "1050").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketTotal(), "000000007100");
  EXPECT_EQ(shop.Send({"D", "Socio", "100", "D"}).fiscal, 0x1600);
  EXPECT_EQ(shop.Send({"D", "Envio", "000000200", "R"}).fiscal, 0x1600);
  EXPECT_EQ(shop.TicketTotal(), "000000007200");
  EXPECT_EQ(shop.Send({"D", "Tarjeta", "5000", "T"}).fields,
            (Texts{"000000002200", "000000000000"}));
  EXPECT_EQ(shop.Send({"D", "Efectivo", "3000", "T"}).fields,
            (Texts{"000000000000", "000000000800"}));
  const Answer closed = shop.Send({"E", "T"});
  EXPECT_EQ(closed.fiscal, 0x0600);
  EXPECT_EQ(closed.fields, (Texts{"00000001"}));
}

TEST(Documents, OnLetterAIvaComesOnTop) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("Yerba", "2000", "10000", "2100");
  shop.InvoiceItem("Pan", "1000", "3333", "1050");
  const Answer subtotal = shop.Send({"c", "N", kEmpty});
  EXPECT_EQ(subtotal.fields,
            (Texts{"00002", "00003000", "000000027883", "000000004550", "000000000000",
                   "000000000000", "000000000000", "000000023333", "000000027883"}));
  EXPECT_EQ(shop.CloseInvoice().fields, (Texts{"00000001"}));
}

TEST(Documents, OnLetterBIvaIsInThePrice) {
  Shop shop;
  shop.OpenInvoice("T", "B");
  shop.InvoiceItem("Yerba", "1000", "12100", "2100");
  const Answer subtotal = shop.Send({"c", "N", kEmpty});
  EXPECT_EQ(subtotal.fields.at(2), "000000012100");
  EXPECT_EQ(subtotal.fields.at(3), "000000002100");
  EXPECT_EQ(subtotal.fields.at(7), "000000010000");
}

TEST(Documents, InternalTaxesComePerUnitAndBearNoIva) {
  Shop net;
  net.OpenInvoice("T", "A");
  net.InvoiceItem("Vino", "3000", "10000", "2100", "M", "500");
  EXPECT_EQ(net.InvoiceTotal(), "000000037800");  // 300 + 63 + 15
  Shop gross;
  gross.OpenInvoice("T", "B");
  gross.InvoiceItem("Vino", "3000", "12600", "2100", "M", "500");
  const Answer subtotal = gross.Send({"c", "N", kEmpty});
  EXPECT_EQ(subtotal.fields.at(2), "000000037800");
  EXPECT_EQ(subtotal.fields.at(3), "000000006300");
  EXPECT_EQ(subtotal.fields.at(5), "000000001500");
}

TEST(Documents, SmallInternalTaxesCountTheirTenThousandths) {
  Settings settings;
  settings.digits.internal_tax = {5, 4};
  struct Tax {
    std::string_view each;
    const char* of_a_thousand;
  };
  constexpr std::array<Tax, 3> kTaxes{{{"000000049", "000000000490"},
                                       {"000000050", "000000000500"},
                                       {"000000001", "000000000010"}}};
  for (const Tax& tax : kTaxes) {
    Shop shop(settings);
    shop.OpenInvoice("T", "A");
    EXPECT_EQ(shop.InvoiceItem("Tornillo", "1000000", "100", "2100", "M", tax.each).fiscal, 0x3600);
    EXPECT_EQ(shop.Send({"c", "N", kEmpty}).fields.at(5), tax.of_a_thousand) << tax.each;
  }
}

TEST(Documents, AQuantityCountsItsTenThousandths) {
  Settings settings;
  settings.digits.quantity = {5, 4};
  Shop shop(settings);
  shop.OpenInvoice("T", "B");
  shop.PaperText();
  EXPECT_EQ(shop.InvoiceItem("Oro", "12345", "10000000").fiscal, 0x3600);
  EXPECT_EQ(shop.InvoiceItem("Plata", "4", "10000000").fiscal, 0x3600);
  EXPECT_EQ(shop.PaperText(),
            "1,2345 x 100.000,00 (21,00)\n"
            "Oro                           123.450,00\n"
            "0,0004 x 100.000,00 (21,00)\n"
            "Plata                              40,00\n");
  const Texts subtotal = shop.Send({"c", "N", kEmpty}).fields;
  EXPECT_EQ(subtotal.at(1), "00001235");  // the units are told in thousandths
  EXPECT_EQ(subtotal.at(2), "000012349000");
}

TEST(Documents, APerceptionIsAddedToTheTotalOnly) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  EXPECT_EQ(shop.Send({"f", "IIBB", "O", "300", "0000"}).fiscal, 0xB620);
  shop.InvoiceItem("Yerba", "1000", "10000", "2100");
  EXPECT_EQ(shop.Send({"f", "IIBB", "O", "300", "0000"}).fiscal, 0x3600);
  EXPECT_EQ(shop.Send({"f", "IVA", "I", "250", "2100"}).fiscal, 0x3600);
  EXPECT_EQ(shop.InvoiceTotal(), "000000012650");
}

TEST(Documents, ADiscountSpreadsOverTheRatesAndNeverExceedsTheTotal) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("Yerba", "1000", "10000", "2100");
  shop.InvoiceItem("Pan", "1000", "5000", "1050");
  EXPECT_EQ(shop.Send({"d", "Todo y mas", "15001", "D"}).fiscal, 0xB610);
  EXPECT_EQ(shop.Send({"d", "Socio", "1000", "D"}).fiscal, 0x3600);
  // 93.33 at 21 % and 46.67 at 10.5 %.
  EXPECT_EQ(shop.InvoiceTotal(), "000000016450");
}

TEST(Documents, OnlyWhatWasSoldCanBeVoided) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "2000", "1000");
  EXPECT_EQ(shop.TicketItem("Torta", "1000", "1000", "2100", "m").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketItem("Pan", "1000", "0900", "2100", "m").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketItem("Pan", "2001", "1000", "2100", "m").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketItem("Pan", "1500", "1000", "2100", "m").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketItem("Pan", "1000", "1000", "2100", "m").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketTotal(), "000000000500");
}

TEST(Documents, WhatIsTakenBackCountsOverAllEqualLines) {
  struct Line {
    std::string_view text, quantity, qualifier;
    bool done;
  };
  const std::vector<std::vector<Line>> stories{
      {{"Pan", "1000", "M", true},
       {"Pan", "1000", "M", true},
       {"Pan", "2000", "m", true},
       {"Pan", "1", "m", false}},
      {{"Pan", "2000", "M", true},
       {"Pan", "1500", "R", true},
       {"Pan", "1000", "m", false},
       {"Pan", "500", "m", true},
       {"Pan", "500", "R", false}},
      {{"Pan", "1000", "M", true},
       {"Torta", "5000", "M", true},
       {"Pan", "2000", "R", false},
       {"Pan", "1000", "M", true},
       {"Pan", "2000", "R", true}},
  };
  for (std::size_t story = 0; story < stories.size(); ++story) {
    Shop shop;
    shop.OpenTicket();
    for (const Line& line : stories[story]) {
      const Answer answer =
          shop.TicketItem(line.text, line.quantity, "1000", "2100", line.qualifier);
      EXPECT_EQ(answer.fiscal, line.done ? 0x1600 : 0x9610)
          << story << ": " << line.qualifier << " " << line.quantity;
    }
  }
}

// Each void takes its own rounded amount, but no more than is left, and the last one all of that.
TEST(Documents, WhatIsTakenBackInPartsIsWhatWasSold) {
  struct Story {
    const char* words;
    std::vector<std::string_view> sold;
    std::string_view price, internal, part;
    int parts;
    const char* left;  // of 100.00 that were sold besides
  };
  const std::vector<Story> stories{
      {"a half and the other half", {"1000"}, "101", "0", "500", 2, "000000010000"},
      {"two halves at once", {"500", "500"}, "101", "0", "1000", 1, "000000010000"},
      {"a thousand voids of half a cent", {"100000"}, "5", "0", "100", 1000, "000000010000"},
      {"a thousand voids of nothing", {"1000"}, "101", "0", "1", 1000, "000000010000"},
      {"only the first half", {"1000"}, "101", "0", "500", 1, "000000010050"},
      {"internal taxes, too", {"1000", "1000"}, "101", "33", "500", 4, "000000010000"},
      {"nearly all of it taxes", {"1000"}, "5", "4", "100", 10, "000000010000"},
  };
  for (const Story& story : stories) {
    Shop shop;
    shop.OpenTicket();
    shop.TicketItem("Otra", "1000", "10000");
    for (const std::string_view quantity : story.sold) {
      shop.TicketItem("Queso", quantity, story.price, "2100", "M", story.internal);
    }
    for (int part = 0; part < story.parts; ++part) {
      ASSERT_EQ(
          shop.TicketItem("Queso", story.part, story.price, "2100", "m", story.internal).fiscal,
          0x1600)
          << story.words << " " << part;
    }
    EXPECT_EQ(shop.TicketTotal(), story.left) << story.words;
  }
}

TEST(Documents, ALineVoidedInHalvesIsGoneWithoutOtherLines) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Queso", "1000", "101");
  shop.PaperText();
  EXPECT_EQ(shop.TicketItem("Queso", "500", "101", "2100", "m").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketItem("Queso", "500", "101", "2100", "m").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketTotal(), "000000000000");
  const std::string paper = shop.PaperText();
  EXPECT_NE(paper.find("Queso                              -0,51"), std::string::npos) << paper;
  EXPECT_NE(paper.find("Queso                              -0,50"), std::string::npos) << paper;
}

TEST(Documents, NothingIsReturnedThatWasNotSold) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "2000", "1000");
  EXPECT_EQ(shop.TicketItem("Envase", "1000", "500", "2100", "R").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketItem("Pan", "1000", "1000", "1050", "R").fiscal, 0x9610);
  EXPECT_EQ(shop.TicketItem("Pan", "1000", "1000", "2100", "R").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketTotal(), "000000001000");
}

TEST(Documents, ATotalThatWouldOverflowIsRefusedAndStaysAsItWas) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Oro", "99000", "999999999");
  EXPECT_EQ(shop.TicketItem("Oro", "99000", "999999999").fiscal, 0x9640);
  EXPECT_EQ(shop.TicketTotal(), "098999999901");
}

TEST(Documents, TheRestIsTakenInCash) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  shop.Send({"D", "Tarjeta", "400", "T"});
  EXPECT_EQ(shop.Send({"E", "T"}).fiscal, 0x0600);
  const std::string paper = shop.PaperText();
  EXPECT_NE(paper.find("Efectivo                            6,00"), std::string::npos) << paper;
}

TEST(Documents, EachSeriesAndLetterCountsOnItsOwn) {
  Shop shop;
  const auto issue = [&shop](std::string_view kind, std::string_view letter) {
    shop.OpenInvoice(kind, letter);
    shop.InvoiceItem("Pan", "1000", "1000");
    return shop.CloseInvoice(kind, letter).fields.at(0);
  };
  EXPECT_EQ(issue("T", "A"), "00000001");
  EXPECT_EQ(issue("T", "A"), "00000002");
  EXPECT_EQ(issue("T", "B"), "00000001");
  EXPECT_EQ(issue("M", "A"), "00000001");
  EXPECT_EQ(issue("D", "A"), "00000001");
  EXPECT_EQ(issue("T", "A"), "00000003");
}

TEST(Documents, ACancelledDocumentKeepsItsNumber) {
  Shop shop;
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(shop.Send({"D", kEmpty, kEmpty, "C"}).fiscal, 0x0600);
  EXPECT_EQ(shop.printer.GetMachine().day.Documents(), 0U);
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(shop.Send({"E", "T"}).fields, (Texts{"00000002"}));
}

TEST(Documents, ADeliveryNoteNeedsNoMoney) {
  Shop shop(FamilySettings(Family::kForm));
  shop.OpenInvoice("E", "R");
  EXPECT_EQ(shop.InvoiceItem("Cajas", "5000", "0", "0").fiscal, 0x3600);
  EXPECT_EQ(shop.CloseInvoice("E", "R").fields, (Texts{"00000001"}));
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

}  // namespace
}  // namespace impresora
