#include "memory/memory.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "folder.hpp"
#include "host.hpp"
#include "memory/database.hpp"
#include "story_test.hpp"

namespace impresora {
namespace {

using prueba::FamilySettings;
using prueba::Folder;
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

std::string Query(const std::string& path, const std::string& sql) {
  Database database(path);
  return database.Text(sql);
}

// Stories with a memory: "reopen" is the next day's printer at the same file, "sql" asks the file.
class MemoryPlayer : public prueba::ShopPlayer {
 public:
  MemoryPlayer() {
    verbs_["reopen"] = [this](std::string_view) { Open(); };
    verbs_["sql"] = [this](std::string_view rest) {
      const std::size_t arrow = rest.find(" => ");
      Expect(rest.substr(arrow + 4), Query(*folder_ / "m.db", std::string(rest.substr(0, arrow))));
    };
  }

 protected:
  void Begin(const Settings& settings) override {
    ShopPlayer::Begin(settings);
    store_.reset();
    folder_.emplace();
    settings_ = settings;
    Open();
  }

 private:
  void Open() {
    store_.reset();
    shop_ = std::make_unique<Shop>(settings_);
    store_ = OpenMemory(*folder_ / "m.db", settings_);
    shop_->printer.UseMemory(*store_);
  }

  Settings settings_;
  std::optional<Folder> folder_;
  std::unique_ptr<Store> store_;
};

PLAY_STORIES(Memory, MemoryPlayer, "memory")

const Books& BooksOf(const Shop& shop) {
  return shop.printer.GetMachine();
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

TEST(MemoryBooks, ANewFileBeginsWithThisPrinter) {
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

TEST(MemoryBooks, ThePaperOfAnOpenDocumentIsKeptUntilItsEnd) {
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
TEST(MemoryBooks, AnyStateComesBackAsItWas) {
  constexpr std::array<std::string_view, 14> kTexts{
      "\x7F", "1", "0000", "2100", "1000", "5", "C", "T", "A", "M", "D", "I", "Pan", "260101"};
  for (const Family family : {Family::kTicketInvoice, Family::kForm}) {
    const Folder folder;
    Settings settings = FamilySettings(family);
    settings.closings_left = 10'000;
    std::mt19937 random(5);
    auto shop = std::make_unique<ShopWithMemory>(folder / "m.db", settings);
    for (int i = 0; i < 1500; ++i) {
      shop->SendBody(prueba::AnyBody(random, kTexts));
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

TEST(MemoryBooks, ARestartForgetsNothingAndInventsNothing) {
  const Folder folder;
  ShopWithMemory shop(folder / "m.db");
  shop.OpenTicket();
  shop.TicketItem("Pan", "1000", "1000");
  const Books before = BooksOf(shop);
  shop.printer.Restart();
  EXPECT_EQ(BooksOf(shop), AfterAPowerCut(before));
  EXPECT_EQ(shop.Send({"E", "T"}).fields, (Texts{"00000001"}));
}

TEST(MemoryBooks, ThePrinterCanBeReadWhileItWorks) {
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

TEST(MemoryBooks, ACommandThatChangesNothingWritesNothing) {
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

}  // namespace
}  // namespace impresora
