#include "commands/fields.hpp"

#include <gtest/gtest.h>

#include "host.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::kEmpty;
using prueba::Shop;

constexpr unsigned kErrors = kSummary | kUnknownCommand | kInvalidField | kWrongState | kOverflow;

struct FieldCase {
  const char* story;
  std::string body;
  unsigned error;
};

constexpr unsigned kBad = kSummary | kInvalidField;

std::string TicketItem(std::string_view text, std::string_view quantity, std::string_view price,
                       std::string_view rate, std::string_view qualifier, std::string_view packages,
                       std::string_view internal) {
  return Body({"B", text, quantity, price, rate, qualifier, packages, "0000", internal});
}

TEST(Fields, OfATicketItem) {
  const std::vector<FieldCase> cases{
      {"a plain item", TicketItem("Pan", "00001000", "000001000", "2100", "M", "0001", "0"), 0},
      {"a price with its point", TicketItem("Pan", "1000", "0000010.00", "2100", "M", "1", "0"), 0},
      {"a return with signed packages", TicketItem("Pan", "1000", "100", "2100", "R", "-001", "0"),
       0},
      {"a signed quantity", TicketItem("Pan", "-1000", "100", "2100", "R", "-001", "0"), 0},
      {"no description", TicketItem(kEmpty, "1000", "1000", "2100", "M", "0001", "0"), kBad},
      {"no quantity", TicketItem("Pan", "0000", "1000", "2100", "M", "0001", "0"), kBad},
      {"a quantity too long", TicketItem("Pan", "000001000", "1000", "2100", "M", "1", "0"), kBad},
      {"a price too long", TicketItem("Pan", "1000", "0000001000", "2100", "M", "1", "0"), kBad},
      {"a price with all its digits before the point",
       TicketItem("Pan", "1000", "123456789.", "2100", "M", "1", "0"), kBad},
      {"a price with all its digits behind the point",
       TicketItem("Pan", "1000", "0.12345678", "2100", "M", "1", "0"), kBad},
      {"a quantity of many decimals", TicketItem("Pan", "1.2345678", "100", "2100", "M", "1", "0"),
       kBad},
      {"a price with letters", TicketItem("Pan", "1000", "10x0", "2100", "M", "1", "0"), kBad},
      {"a rate too long", TicketItem("Pan", "1000", "1000", "02100", "M", "1", "0"), kBad},
      {"a qualifier nobody knows", TicketItem("Pan", "1000", "1000", "2100", "X", "1", "0"), kBad},
      {"packages with letters", TicketItem("Pan", "1000", "1000", "2100", "M", "1a", "0"), kBad},
      {"a text too long",
       TicketItem(std::string(81, 'a'), "1000", "1000", "2100", "M", "0001", "0"), kBad},
      {"a field missing", Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000"}), kBad},
      {"a field too many",
       Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0", "0"}), kBad},
      {"internal taxes above the price", TicketItem("Pan", "1000", "100", "2100", "M", "1", "101"),
       kBad},
      {"more than any total holds",
       TicketItem("Oro", "99999999", "999999999", "2100", "M", "1", "0"), kSummary | kOverflow},
  };
  for (const FieldCase& c : cases) {
    Shop shop;
    shop.OpenTicket();
    shop.TicketItem("Base", "10000", "100000");
    shop.TicketItem("Pan", "1000", "100");
    EXPECT_EQ(shop.SendBody(c.body).fiscal & kErrors, c.error) << c.story;
  }
}

TEST(Fields, OfTheOtherCommands) {
  const std::vector<FieldCase> cases{
      {"a date", Body({"X", "240229", "235959"}), 0},
      {"a day that does not exist", Body({"X", "250229", "235959"}), kBad},
      {"an hour that does not exist", Body({"X", "250228", "240000"}), kBad},
      {"a date with blanks", Body({"X", "2502  ", "120000"}), kBad},
      {"the last header line", Body({"]", "10", "texto"}), 0},
      {"header line zero", Body({"]", "0", "texto"}), kBad},
      {"a header line beyond the last", Body({"]", "21", "texto"}), kBad},
      {"a header text too long", Body({"]", "1", std::string(121, 'a')}), kBad},
      {"an empty header text", Body({"]", "1", kEmpty}), 0},
      {"feeding many lines", Body({"R", "99"}), 0},
      {"feeding too many lines", Body({"R", "100"}), kBad},
      {"feeding backwards", Body({"R", "-1"}), kBad},
      {"a report of another kind", Body({"9", "Y", "P"}), kBad},
      {"closings from the last to the first", Body({";", "9", "5", "D"}), kBad},
      {"dates from the last to the first", Body({":", "261231", "260101", "D"}), kBad},
      {"a status nobody knows", Body({"*", "?"}), kBad},
      {"bytes where a separator should be", "Kx", kBad},
      {"a command nobody knows", "?", kSummary | kUnknownCommand},
      {"a command of other printers", Body({"\\", "Q", "L"}), kSummary | kUnknownCommand},
  };
  for (const FieldCase& c : cases) {
    Shop shop;
    EXPECT_EQ(shop.SendBody(c.body).fiscal & kErrors, c.error) << c.story;
  }
}

std::string Opening(std::string_view name, std::string_view address) {
  return Body({"`", "T",    "C",           "A", "1",     "F",    "12",   "I",    "I",    name,
               " ", "CUIT", "20123456789", "N", address, kEmpty, kEmpty, kEmpty, kEmpty, "C"});
}

TEST(Fields, TextsAreAsLongAsTheSettingsSay) {
  struct TextCase {
    const char* story;
    std::string_view stage;  // what is open: nothing, a ticket or a non-fiscal document
    std::string (*body)(const std::string& text);
    std::size_t longest;
  };
  const std::vector<TextCase> cases{
      {"an item", "t",
       [](const std::string& t) { return TicketItem(t, "1000", "100", "2100", "M", "1", "0"); },
       21},
      {"a discount", "t",
       [](const std::string& t) {
         return Body({"D", t, "1", "D"});
       },
       22},
      {"a header", "",
       [](const std::string& t) {
         return Body({"]", "1", t});
       },
       23},
      {"a header in double width", "",
       [](const std::string& t) {
         return Body({"]", "1", "\xF4" + t});
       },
       23},
      {"a non-fiscal line", "n",
       [](const std::string& t) {
         return Body({"I", t});
       },
       24},
      {"a customer", "", [](const std::string& t) { return Opening(t, kEmpty); }, 14},
      {"an address", "", [](const std::string& t) { return Opening("Juan", t); }, 14},
      {"a line of text, which hosts send as they please", "t",
       [](const std::string& t) {
         return Body({"A", t});
       },
       26},
  };
  Settings settings;
  settings.roll_texts = {21, 22, 23, 24, 14};
  for (const TextCase& c : cases) {
    for (const bool fits : {true, false}) {
      Shop shop(settings);
      if (c.stage == "t") shop.OpenTicket();
      if (c.stage == "t") shop.TicketItem("Base", "10000", "100000");
      if (c.stage == "n") shop.Send({"H"});
      const std::string text(fits ? c.longest : c.longest + 1, 'a');
      EXPECT_EQ(shop.SendBody(c.body(text)).fiscal & kErrors, fits ? 0 : kBad) << c.story;
    }
  }
}

TEST(Fields, WhatHostsWriteOnTheirOwnFitsWhateverTheSettings) {
  Settings settings;
  settings.roll_texts = {3, 3, 3, 3, 3};
  Shop shop(settings);
  EXPECT_EQ(shop.SendBody(Opening("Ana", "SIN DOMICILIO")).fiscal, 0x3600);
  EXPECT_EQ(shop.InvoiceItem("Pan", "1000", "1000").fiscal, 0x3600);
  EXPECT_EQ(shop.Send({"d", "Ajuste por Redondeo", "1", "D"}).fiscal, 0x3600);
  EXPECT_EQ(shop.Send({"f", "Ajuste por redondeo", "O", "1", "0000"}).fiscal, 0x3600);
  EXPECT_EQ(shop.Send({"d", "Tarjeta de credito..", "1", "T"}).fiscal, 0x3600);
}

TEST(Fields, DigitCountsAreThoseOfTheSettings) {
  Settings settings;
  settings.digits.quantity = {4, 2};
  settings.digits.price = {5, 4};
  Shop shop(settings);
  shop.OpenTicket();
  EXPECT_EQ(shop.TicketItem("Pan", "000250", "000123456").fiscal, 0x1600);
  EXPECT_EQ(shop.TicketTotal(), "000000003086");
  EXPECT_EQ(shop.TicketItem("Pan", "0000250", "1").fiscal, 0x9610);
}

}  // namespace
}  // namespace impresora
