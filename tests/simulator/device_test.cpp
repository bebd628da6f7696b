#include <gtest/gtest.h>

#include "host.hpp"

namespace impresora {
namespace {

using prueba::FamilySettings;
using prueba::kEmpty;
using prueba::Shop;

using Texts = std::vector<std::string>;

TEST(Device, TheClockGoesOnFromWhereItWasSet) {
  Shop shop;
  EXPECT_EQ(shop.Send({"Y"}).fields, (Texts{"261121", "103000"}));
  EXPECT_EQ(shop.Send({"X", "271231", "235950"}).fiscal, 0x0600);
  EXPECT_EQ(shop.Send({"Y"}).fields, (Texts{"271231", "235950"}));
  shop.now += 15;
  EXPECT_EQ(shop.Send({"Y"}).fields, (Texts{"280101", "000005"}));
}

TEST(Device, HeaderLinesAreKeptAsTheyWereSent) {
  Shop shop;
  shop.Send({"]", "3",
             "\xF4"
             "Almac\xE9n"});
  shop.Send({"]", "4", "Av. Siempre Viva 742    "});
  EXPECT_EQ(shop.Send({"^", "3"}).fields, (Texts{"3",
                                                 "\xF4"
                                                 "Almac\xE9n"}));
  EXPECT_EQ(shop.Send({"^", "4"}).fields, (Texts{"4", "Av. Siempre Viva 742"}));
  shop.Send({"]", "4", kEmpty});
  EXPECT_EQ(shop.Send({"^", "4"}).fields, (Texts{"4", ""}));
}

TEST(Device, ModelData) {
  Settings settings = FamilySettings(Family::kForm);
  settings.model = "MODELO";
  Shop shop(settings);
  EXPECT_EQ(shop.Send({"*", "P"}).fields,
            (Texts{"FC", "53", "72", "22", "72", "72", "72", "080", "10", "0001", "MODELO"}));
}

TEST(Device, TheOtherQueries) {
  Shop shop;
  EXPECT_EQ(shop.Send({"*", "N"}).fields, (Texts{"261121", "103000", "00000", "01825"}));
  EXPECT_EQ(shop.Send({"*"}).fields, shop.Send({"*", "N"}).fields);
  EXPECT_EQ(shop.Send({"*", "C"}).fields.at(2), "I");
  EXPECT_EQ(shop.Send({"*", "D"}).fields.size(), 5U);
}

TEST(Device, TheDrawerOpensEachTime) {
  Shop shop;
  shop.Send({"{"});
  shop.Send({"{"});
  EXPECT_EQ(shop.printer.DrawerOpenings(), 2U);
}

TEST(Device, CuttingAndFeedingShowOnPaper) {
  Shop shop;
  shop.Send({"R", "2"});
  shop.Send({"K"});
  EXPECT_EQ(shop.PaperText(), "\n\n~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~\n");
}

}  // namespace
}  // namespace impresora
