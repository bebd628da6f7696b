#include "memory/memory.hpp"

#include <gtest/gtest.h>

#include <random>

#include "commands/commands.hpp"
#include "host.hpp"
#include "memory/database.hpp"
#include "memory_folder.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::FamilySettings;
using prueba::Folder;
using prueba::kEmpty;
using prueba::Shop;

using Texts = std::vector<std::string>;

// A shop whose printer has a memory; whatever it does, another one at the same file knows.
class ShopWithMemory : public Shop {
 public:
  explicit ShopWithMemory(const std::string& path, const Settings& settings = {})
      : Shop(settings), store_(OpenMemory(path, settings)) {
    printer.UseMemory(*store_);
  }

 private:
  std::unique_ptr<Store> store_;
};

const Books& BooksOf(const Shop& shop) {
  return shop.printer.GetMachine();
}

std::string Query(const std::string& path, const std::string& sql) {
  Database database(path);
  return database.Text(sql);
}

// Of an open document the paper has one line more once the power was gone.
Books AfterAPowerCut(const Books& before) {
  Books books = before;
  if (before.document || before.non_fiscal_open) {
    books.printed.push_back({"*** CORTE DE ENERGÍA ***", PaperLine::Style::kCentred});
  }
  return books;
}

void SellTicket(Shop& shop, std::string_view price = "12100") {
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", price);
  shop.Send({"E", "T"});
}

TEST(Memory, ANewFileBeginsWithThisPrinter) {
  const Folder folder;
  Settings settings;
  settings.closings_left = 40;
  { ShopWithMemory shop(folder / "m.db", settings); }
  EXPECT_EQ(Query(folder / "m.db", "SELECT cierres_restantes FROM estado"), "40");
  EXPECT_EQ(Query(folder / "m.db", "SELECT valor FROM identidad WHERE clave = 'punto_venta'"), "1");
  settings.closings_left = 7;  // only counts for a new file
  ShopWithMemory again(folder / "m.db", settings);
  EXPECT_EQ(again.printer.GetMachine().closings_left, 40);
}

TEST(Memory, TheBooksAreThereTheNextDay) {
  const Folder folder;
  {
    ShopWithMemory shop(folder / "m.db");
    shop.Send({"X", "261122", "080000"});
    shop.Send({"]", "1",
               "\xF4"
               "Almac\xE9n"});
    shop.Send({"]", "12", "Gracias"});
    SellTicket(shop);
    shop.Send({"9", "Z", "P"});
    SellTicket(shop, "6050");
  }
  ShopWithMemory shop(folder / "m.db");
  EXPECT_EQ(shop.Send({"Y"}).fields, (Texts{"261122", "080000"}));
  EXPECT_EQ(shop.Send({"^", "1"}).fields.at(1),
            "\xF4"
            "Almac\xE9n");
  EXPECT_EQ(shop.Send({"^", "12"}).fields.at(1), "Gracias");
  EXPECT_EQ(shop.Send({"*", "A"}).fields.at(0), "00001");
  EXPECT_EQ(shop.Send({"*", "A"}).fields.at(1), "00000002");
  EXPECT_EQ(shop.Send({"*", "N"}).fields.at(3), "01824");
  EXPECT_EQ(shop.Send({"9", "X", "P"}).fields.at(4), "000000006050");
  shop.PaperText();
  EXPECT_EQ(shop.Send({";", "1", "9", "D"}).fields, (Texts{"00001"}));
  EXPECT_NE(shop.PaperText().find("TOTAL VENTAS                    $ 121,00"), std::string::npos);
}

// ---- The open document ----

TEST(Memory, AnOpenInvoiceGoesOnAfterAPowerCut) {
  const Folder folder;
  const auto begin = [](Shop& shop) {
    shop.OpenInvoice("T", "A");
    shop.InvoiceItem("Vino", "3000", "10000", "2100", "M", "500");
    shop.InvoiceItem("Pan", "2000", "5000", "1050");
    shop.InvoiceItem("Pan", "1000", "5000", "1050", "m");
    shop.Send({"d", "Socio", "1000", "D"});
    shop.Send({"f", "IIBB", "O", "300", "0000"});
    shop.Send({"d", "Tarjeta", "5000", "T"});
  };
  const auto end = [](Shop& shop) {
    Texts fields = shop.Send({"d", "Efectivo", "90000", "T"}).fields;
    fields.push_back(shop.CloseInvoice().fields.at(0));
    for (std::string& field : shop.Send({"9", "X", "P"}).fields) fields.push_back(field);
    return fields;
  };
  Shop without;
  begin(without);
  {
    ShopWithMemory before(folder / "m.db");
    begin(before);
  }
  ShopWithMemory after(folder / "m.db");
  EXPECT_EQ(after.Send({"Y"}).fiscal, 0x3600);
  EXPECT_EQ(after.Send({"c", "N", kEmpty}).fields, without.Send({"c", "N", kEmpty}).fields);
  EXPECT_EQ(end(after), end(without));
}

TEST(Memory, WhatVoidsHaveLeftOfALineOutlivesAPowerCut) {
  const Folder folder;
  {
    ShopWithMemory shop(folder / "m.db");
    shop.OpenTicket();
    shop.TicketItem("Otra", "1000", "1000");
    shop.TicketItem("Queso", "1000", "101", "2100", "M", "33");
    shop.TicketItem("Queso", "500", "101", "2100", "m", "33");
  }
  ShopWithMemory shop(folder / "m.db");
  EXPECT_EQ(shop.TicketItem("Queso", "500", "101", "2100", "m", "33").fiscal, 0x1600);
  EXPECT_EQ(shop.Send({"C", "N", kEmpty}).fields.at(2), "000000001000");
  EXPECT_EQ(shop.Send({"C", "N", kEmpty}).fields.at(5), "000000000000");
}

TEST(Memory, AnOpenDocumentCanBeCancelledAfterAPowerCut) {
  const Folder folder;
  {
    ShopWithMemory shop(folder / "m.db");
    shop.OpenTicket();
    shop.TicketItem("Pan", "1000", "1000");
  }
  ShopWithMemory shop(folder / "m.db");
  EXPECT_EQ(shop.PaperText(), "        *** CORTE DE ENERGÍA ***\n");
  EXPECT_EQ(shop.Send({"D", kEmpty, kEmpty, "C"}).fiscal, 0x0600);
  SellTicket(shop);
  EXPECT_EQ(
      Query(folder / "m.db", "SELECT group_concat(numero || '/' || cancelado) FROM comprobantes"),
      "1/1,2/0");
}

TEST(Memory, ANonFiscalDocumentIsStillOpenToo) {
  const Folder folder;
  {
    ShopWithMemory shop(folder / "m.db");
    shop.Send({"H"});
  }
  ShopWithMemory shop(folder / "m.db");
  EXPECT_EQ(shop.Send({"J", "T"}).fiscal, 0x0600);
}

TEST(Memory, CopiesAreWholeAfterAPowerCut) {
  const Folder folder;
  const Settings form = FamilySettings(Family::kForm);
  const std::string open =
      Body({"`", "F",    "C",           "A", "2",       "F",    "12",   "I",    "I",    "Juan",
            " ", "CUIT", "20123456789", "N", "Calle 1", kEmpty, kEmpty, kEmpty, kEmpty, "C"});
  {
    ShopWithMemory shop(folder / "m.db", form);
    shop.SendBody(open);
    shop.InvoiceItem("Resma", "1000", "1000");
  }
  ShopWithMemory shop(folder / "m.db", form);
  shop.CloseInvoice("F", "A");
  const std::string paper = shop.PaperText();
  const std::size_t copy = paper.find("DUPLICADO");
  ASSERT_NE(copy, std::string::npos);
  EXPECT_NE(paper.find("Resma", copy), std::string::npos);
  EXPECT_NE(paper.find("Señor/es: Juan", copy), std::string::npos);
}

TEST(Memory, ThePaperOfAnOpenDocumentIsKeptUntilItsEnd) {
  const Folder folder;
  std::string printed;
  {
    ShopWithMemory shop(folder / "m.db");
    shop.OpenTicket();
    shop.TicketItem("Pan", "1000", "1000");
    printed = shop.PaperText();
  }
  for (int cuts = 0; cuts < 2; ++cuts) {
    ShopWithMemory shop(folder / "m.db");
    printed += shop.PaperText();
    std::string kept;
    for (const PaperLine& line : BooksOf(shop).printed) kept += AsText(line, 40) + "\n";
    EXPECT_EQ(kept, printed);
  }
  ShopWithMemory shop(folder / "m.db");
  shop.Send({"E", "T"});
  EXPECT_EQ(Query(folder / "m.db", "SELECT count(*) FROM documento_papel"), "0");
}

// Whatever is sent, what the file gives back is what the printer had.
TEST(Memory, AnyStateComesBackAsItWas) {
  constexpr std::array<std::string_view, 14> kTexts{
      "\x7F", "1", "0000", "2100", "1000", "5", "C", "T", "A", "M", "D", "I", "Pan", "260101"};
  for (const Family family : {Family::kTicketInvoice, Family::kForm}) {
    const Folder folder;
    Settings settings = FamilySettings(family);
    settings.closings_left = 10'000;
    std::mt19937 random(5);
    auto shop = std::make_unique<ShopWithMemory>(folder / "m.db", settings);
    for (int i = 0; i < 1500; ++i) {
      const CommandRow& row = Commands()[random() % Commands().size()];
      std::string body(1, static_cast<char>(row.byte));
      for (const FieldRow& field : row.fields) {
        body += kFs;
        if (field.kind == FieldKind::kChoice) {
          body += field.allowed[random() % field.allowed.size()];
        } else {
          body += kTexts[random() % kTexts.size()];
        }
      }
      shop->SendBody(body);
      shop->PaperText();
      if (i % 50 != 0) continue;
      const Books before = BooksOf(*shop);
      const std::vector<DailyClosing> closings = shop->printer.GetMachine().closings;
      shop.reset();
      shop = std::make_unique<ShopWithMemory>(folder / "m.db", settings);
      ASSERT_EQ(BooksOf(*shop), AfterAPowerCut(before)) << i;
      ASSERT_EQ(shop->printer.GetMachine().closings.size(), closings.size()) << i;
      for (std::size_t z = 0; z < closings.size(); ++z) {
        ASSERT_EQ(shop->printer.GetMachine().closings[z].day, closings[z].day) << i;
      }
    }
    EXPECT_GT(shop->printer.GetMachine().finished, 0U);
  }
}

TEST(Memory, ARestartForgetsNothingAndInventsNothing) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  const Books before = BooksOf(shop);
  shop.printer.Restart();
  EXPECT_EQ(BooksOf(shop), AfterAPowerCut(before));
  EXPECT_EQ(shop.Send({"E", "T"}).fields, (Texts{"00000001"}));
}

// ---- The table of documents ----

TEST(Memory, IntegratorsFindEachDocumentInATable) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  shop.OpenInvoice("T", "A");
  shop.InvoiceItem("Yerba", "1000", "10000");
  shop.CloseInvoice();
  SellTicket(shop);
  shop.Send({"9", "Z", "P"});
  EXPECT_EQ(
      Query(folder / "m.db",
            "SELECT group_concat(clase || '|' || tipo || '|' || letra || '|' || numero || '|' "
            "|| fecha || '|' || total || '|' || iva || '|' || CAST(cuit AS TEXT), ';') "
            "FROM comprobantes"),
      "fiscal|TIQUE FACTURA|A|1|2026-11-21 10:30:00|12100|2100|20123456789;"
      "fiscal|TIQUE|B|1|2026-11-21 10:30:00|12100|2100|;"
      "informe|CIERRE Z||1|2026-11-21 10:30:00|24200|4200|");
  EXPECT_EQ(Query(folder / "m.db", "SELECT sum(iva) FROM tasas WHERE cierre = 1"), "4200");
}

TEST(Memory, ThePrinterCanBeReadWhileItWorks) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  Database reader(folder / "m.db");
  reader.Execute("BEGIN");
  EXPECT_EQ(reader.Number("SELECT count(*) FROM comprobantes"), 0);
  SellTicket(shop);
  EXPECT_EQ(reader.Number("SELECT count(*) FROM comprobantes"), 0);
  reader.Execute("COMMIT");
  EXPECT_EQ(reader.Number("SELECT count(*) FROM comprobantes"), 1);
}

// ---- What the answer waits for ----

TEST(Memory, WhatACommandDidIsInTheFileBeforeItsAnswer) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  Database reader(folder / "m.db");
  shop.OpenTicket();
  EXPECT_EQ(reader.Number("SELECT numero FROM documento"), 1);
  shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(reader.Number("SELECT count(*) FROM documento_items"), 1);
  shop.Send({"E", "T"});
  EXPECT_EQ(reader.Number("SELECT count(*) FROM documento"), 0);
  EXPECT_EQ(reader.Number("SELECT count(*) FROM documento_items"), 0);
  EXPECT_EQ(reader.Number("SELECT ultimo FROM numeracion"), 1);
}

TEST(Memory, ACommandThatChangesNothingWritesNothing) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  Database reader(folder / "m.db");
  const std::int64_t before = reader.Number("PRAGMA data_version");
  shop.Send({"Y"});
  shop.Send({"*", "A"});
  shop.Send({"E", "T"});  // refused
  EXPECT_EQ(reader.Number("PRAGMA data_version"), before);
  SellTicket(shop);
  EXPECT_NE(reader.Number("PRAGMA data_version"), before);
}

TEST(Memory, ClosingsRunOutAcrossRestarts) {
  const Folder folder;
  Settings settings;
  settings.closings_left = 3;
  for (const int fiscal : {0x0700, 0x0700, 0x8780, 0x87A0}) {
    ShopWithMemory shop(folder / "m.db", settings);
    EXPECT_EQ(shop.Send({"9", "Z", "P"}).fiscal, fiscal);
  }
}

}  // namespace
}  // namespace impresora
