#include "fiscal/amounts.hpp"

#include <vector>

#include <gtest/gtest.h>

#include "text/text.hpp"

namespace impresora {
namespace {

TEST(Amounts, HalvesRoundAwayFromZero) {
  EXPECT_EQ(DivideRounded(5, 10), 1);
  EXPECT_EQ(DivideRounded(4, 10), 0);
  EXPECT_EQ(DivideRounded(-5, 10), -1);
  EXPECT_EQ(DivideRounded(-4, 10), 0);
}

TEST(Amounts, ASharePassesTheLimitsOfItsFactors) {
  EXPECT_EQ(Share(100, 1, 3), 33);
  EXPECT_EQ(Share(100, 2, 3), 67);
  EXPECT_EQ(Share(-100, 2, 3), -67);
  EXPECT_EQ(Share(kLargestTotal, kLargestTotal - 1, kLargestTotal), kLargestTotal - 1);
}

struct DigitsCase {
  const char* story;
  std::string_view text;
  Digits digits;
  int decimals;
  std::optional<std::int64_t> value;
};

TEST(Amounts, ReadingDigits) {
  const std::vector<DigitsCase> cases{
      {"the whole width", "00012500", {5, 3}, 3, 12'500},
      {"a shorter field keeps its decimals", "005", {7, 2}, 2, 5},
      {"a written point", "0000012.50", {7, 2}, 4, 125'000},
      {"a written point with fewer decimals", "12.5", {7, 2}, 4, 125'000},
      {"a written point and nothing behind it", "1234567.", {7, 2}, 4, 12'345'670'000},
      {"a written point with a decimal too many", "12.345", {7, 2}, 4, std::nullopt},
      {"a written point with an integer too many", "12345678.", {7, 2}, 4, std::nullopt},
      {"only decimals behind a written point", "0.12345678", {7, 2}, 4, std::nullopt},
      {"an implied point read finer", "1250", {7, 2}, 4, 125'000},
      {"nothing", "", {7, 2}, 2, std::nullopt},
      {"only a point", ".", {7, 2}, 2, std::nullopt},
      {"two points", "1.2.3", {7, 2}, 2, std::nullopt},
      {"a letter", "12a", {7, 2}, 2, std::nullopt},
      {"a comma", "12,5", {7, 2}, 2, std::nullopt},
      {"one digit too many", "1234567890", {7, 2}, 2, std::nullopt},
      {"a sign", "-12", {7, 2}, 2, std::nullopt},
  };
  for (const DigitsCase& c : cases) {
    EXPECT_EQ(ParseDigits(c.text, c.digits, c.decimals), c.value) << c.story;
  }
}

TEST(Amounts, QuantityTimesPriceRoundsOnce) {
  EXPECT_EQ(LineAmount(20'000, 105'000), 2'100);
  EXPECT_EQ(LineAmount(3'330, 10'000), 33);
  EXPECT_EQ(LineAmount(3'350, 10'000), 34);
  EXPECT_EQ(LineAmount(12'345, 1'000'000'000), 12'345'000);
  EXPECT_EQ(LineAmount(999'999'990, 99'999'999'900), std::nullopt);
}

TEST(Amounts, IvaOnTopAndIvaInside) {
  EXPECT_EQ(IvaOnNet(10'000, 2'100), 2'100);
  EXPECT_EQ(NetOfGross(12'100, 2'100), 10'000);
  EXPECT_EQ(NetOfGross(100, 1'050), 90);
  EXPECT_EQ(NetOfGross(500, 0), 500);
}

TEST(Amounts, AsPrinted) {
  EXPECT_EQ(FormatMoney(0), "0,00");
  EXPECT_EQ(FormatMoney(5), "0,05");
  EXPECT_EQ(FormatMoney(-123'456), "-1.234,56");
  EXPECT_EQ(FormatMoney(kLargestTotal), "999.999.999,99");
  EXPECT_EQ(FormatQuantity(20'000), "2");
  EXPECT_EQ(FormatQuantity(100'000), "10");
  EXPECT_EQ(FormatQuantity(15'000), "1,5");
  EXPECT_EQ(FormatQuantity(12'345'670), "1.234,567");
  EXPECT_EQ(FormatQuantity(12'345), "1,2345");
  EXPECT_EQ(FormatPrice(105'000), "10,50");
  EXPECT_EQ(FormatPrice(123'456), "12,3456");
  EXPECT_EQ(Padded(42, 5), "00042");
  EXPECT_EQ(Padded(-42, 5), "-00042");
  EXPECT_EQ(Padded(123'456, 5), "123456");
}

TEST(Text, TheHostsBytesBecomeUtf8) {
  EXPECT_EQ(Utf8FromHost("a\xF1o \x80 \x97"), "año € —");
  EXPECT_EQ(Utf8FromHost("a\tb\x81"
                         "c"),
            "a b c");
  EXPECT_EQ(Columns("año €"), 5U);
  EXPECT_EQ(CutToColumns("ñandú", 2), "ña");
}

}  // namespace
}  // namespace impresora
