#include "fields.hpp"

#include <gtest/gtest.h>

#include "host.hpp"
#include "status.hpp"

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
