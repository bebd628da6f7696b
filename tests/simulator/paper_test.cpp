#include "machine/roll.hpp"

#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::FamilySettings;
using prueba::kEmpty;
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

TEST(Paper, ATicket) {
  Shop shop;
  shop.Send({"]", "1",
             "\xF4"
             "KESTRA"});
  shop.OpenTicket();
  shop.Send({"A",
             "Oferta del d\xED"
             "a"});
  shop.TicketItem("Yerba mate 1 kg", "2000", "123456");
  shop.TicketItem("Pan", "500", "1000", "1050");
  shop.TicketItem("Pan", "500", "1000", "1050", "m");
  shop.Send({"D", "Socio", "912", "D"});
  shop.Send({"D", "Efectivo", "250000", "T"});
  shop.Send({"E", "T"});
  EXPECT_EQ(shop.PaperText(),
            "           SIN VALIDEZ FISCAL\n"
            "              K E S T R A\n"
            "        COMERCIO DE PRUEBA S.A.\n"
            "       C.U.I.T. Nº 30-00000000-7\n"
            "       IVA RESPONSABLE INSCRIPTO\n"
            "========================================\n"
            "                 TIQUE\n"
            "P.V. Nº 0001                 Nº 00000001\n"
            "Fecha 21/11/2026           Hora 10:30:00\n"
            "----------------------------------------\n"
            "A CONSUMIDOR FINAL\n"
            "----------------------------------------\n"
            "CANT. x PRECIO UNIT. (% IVA)\n"
            "DESCRIPCIÓN                      IMPORTE\n"
            "----------------------------------------\n"
            "Oferta del día\n"
            "2 x 1.234,56 (21,00)\n"
            "Yerba mate 1 kg                 2.469,12\n"
            "0,5 x 10,00 (10,50)\n"
            "Pan                                 5,00\n"
            "ANULACIÓN\n"
            "0,5 x 10,00 (10,50)\n"
            "Pan                                -5,00\n"
            "Socio                              -9,12\n"
            "----------------------------------------\n"
            "T O T A L                     $ 2.460,00\n"
            "\n"
            "RECIBI(MOS)\n"
            "Efectivo                        2.500,00\n"
            "Su vuelto                          40,00\n"
            "========================================\n"
            "TM-U220AF                       10:30:00\n"
            "           SIN VALIDEZ FISCAL\n"
            "\n\n\n");
}

TEST(Paper, AnInvoiceWithTwoRates) {
  Shop shop;
  shop.OpenInvoice("T", "A");
  shop.PaperText();
  shop.InvoiceItem("Yerba", "1000", "10000", "2100");
  shop.InvoiceItem("Pan", "1000", "5000", "1050");
  shop.Send({"c", "P", kEmpty});
  shop.CloseInvoice();
  EXPECT_EQ(shop.PaperText(),
            "1 x 100,00 (21,00)\n"
            "Yerba                             100,00\n"
            "1 x 50,00 (10,50)\n"
            "Pan                                50,00\n"
            "Subtotal                          176,25\n"
            "----------------------------------------\n"
            "Neto gravado al 21,00%            100,00\n"
            "IVA 21,00%                         21,00\n"
            "Neto gravado al 10,50%             50,00\n"
            "IVA 10,50%                          5,25\n"
            "----------------------------------------\n"
            "T O T A L                       $ 176,25\n"
            "\n"
            "RECIBI(MOS)\n"
            "Efectivo                          176,25\n"
            "========================================\n"
            "TM-U220AF                       10:30:00\n"
            "           SIN VALIDEZ FISCAL\n"
            "\n\n\n");
}

TEST(Paper, TheHeadOfACreditNote) {
  Shop shop;
  shop.OpenInvoice("M", "B");
  const std::string paper = shop.PaperText();
  EXPECT_NE(paper.find("       TIQUE NOTA DE CRÉDITO \"B\"\n"
                       "P.V. Nº 0001                 Nº 00000001\n"
                       "Fecha 21/11/2026           Hora 10:30:00\n"
                       "----------------------------------------\n"
                       "Señor/es: Juan Perez\n"
                       "CUIT: 20123456789\n"
                       "Calle Falsa 123\n"
                       "IVA Responsable Inscripto\n"),
            std::string::npos)
      << paper;
}

TEST(Paper, ANonFiscalDocumentSaysSo) {
  Shop shop;
  shop.Send({"H"});
  shop.Send({"I", "Hola"});
  shop.PaperText();
  shop.Send({"J", "T"});
  EXPECT_EQ(shop.PaperText(),
            "----------------------------------------\n"
            "               NO FISCAL\n"
            "========================================\n"
            "TM-U220AF                       10:30:00\n"
            "           SIN VALIDEZ FISCAL\n"
            "\n\n\n");
}

TEST(Paper, EveryDocumentIsHeadedWithoutFiscalValue) {
  const std::vector<std::vector<std::string>> bodies{{"@\x1c"
                                                      "C"},
                                                     {"H"},
                                                     {"9\x1cX\x1cP"},
                                                     {"9\x1cZ\x1cP"},
                                                     {";\x1c"
                                                      "1\x1c"
                                                      "2\x1c"
                                                      "D"}};
  for (const auto& commands : bodies) {
    Shop shop;
    for (const std::string& command : commands) shop.SendBody(command);
    EXPECT_EQ(shop.PaperText().substr(0, 29), "           SIN VALIDEZ FISCAL") << commands.front();
  }
}

TEST(Paper, WhatWasAcceptedIsOnTheRollToItsLastLetter) {
  Shop shop;
  const std::string name = "Establecimientos Rurales del Noroeste SRL";
  shop.SendBody(
      Body({"`", "T",    "C",           "B", "1",      "F",    "12",   "I",    "I",    name,
            " ", "CUIT", "20123456789", "N", "Ruta 9", kEmpty, kEmpty, kEmpty, kEmpty, "C"}));
  EXPECT_NE(shop.PaperText().find("Señor/es: Establecimientos Rurales del N\n"
                                  "oroeste SRL\n"),
            std::string::npos);
  shop.InvoiceItem(std::string(75, 'a') + "final", "1000", "10000");
  shop.Send({"d", kEmpty, kEmpty, "C"});
  EXPECT_NE(shop.PaperText().find(std::string(40, 'a') + "\n" + std::string(35, 'a') + "final\n" +
                                  std::string(34, ' ') + "100,00\n"),
            std::string::npos);
  shop.Send({"H"});
  shop.PaperText();
  shop.Send({"I", std::string(115, 'b') + "final"});
  EXPECT_EQ(shop.PaperText(), std::string(40, 'b') + "\n" + std::string(40, 'b') + "\n" +
                                  std::string(35, 'b') + "final\n");
}

TEST(Paper, DoubleWidthIsTheSameInEveryText) {
  Shop shop;
  const std::string mark = "\xF4";
  shop.SendBody(
      Body({"`",    "T",          "C",          "B",   "1",           "F", "12",          "I",
            "I",    mark + "Ana", mark + "Paz", "DNI", "00012345678", "N", mark + "Ruta", kEmpty,
            kEmpty, kEmpty,       kEmpty,       "C"}));
  const std::string head = shop.PaperText();
  EXPECT_NE(head.find("Señor/es:\nA n a\nP a z\nDNI: 00012345678\nR u t a\n"), std::string::npos)
      << head;
  shop.InvoiceItem(mark + "Pan", "1000", "10000");
  shop.Send({"d", mark + "Socio", "100", "D"});
  shop.Send({"f", mark + "IIBB", "O", "300", "0000"});
  shop.Send({"d", mark + "Visa", "1000", "T"});
  EXPECT_EQ(shop.PaperText(),
            "1 x 100,00 (21,00)\n"
            "P a n\n"
            "                                  100,00\n"
            "S o c i o\n"
            "                                   -1,00\n"
            "I I B B\n"
            "                                    3,00\n"
            "----------------------------------------\n"
            "T O T A L                       $ 102,00\n"
            "\n"
            "RECIBI(MOS)\n"
            "V i s a\n"
            "                                   10,00\n");
}

TEST(Paper, FormsAreEightyColumnsWide) {
  Shop shop(FamilySettings(Family::kForm));
  shop.OpenInvoice("F", "A");
  EXPECT_NE(shop.PaperText().find(std::string(80, '-') + "\n"), std::string::npos);
}

}  // namespace
}  // namespace impresora
