// Amounts as tills write them.
#include "base/decimal.hpp"

#include <gtest/gtest.h>

namespace puerta {
namespace {

TEST(Decimals, AreReadExactlyAsWritten) {
  const struct {
    const char* text;
    Decimal value;
  } rows[] = {
      {"0", {0, 0}},           {"12", {12, 0}},
      {"1234.50", {12345, 1}}, {"0.1", {1, 1}},
      {"-2.5", {-25, 1}},      {"10.00", {10, 0}},
      {"0.000001", {1, 6}},    {"999999999999.999999", {999999999999999999, 6}},
      {"-0", {0, 0}},
  };
  for (const auto& row : rows) EXPECT_EQ(ReadDecimal(row.text), row.value) << row.text;
}

TEST(Decimals, AllElseIsNone) {
  for (const char* text :
       {"", "-", ".", "1.", ".5", "1,50", "1.234.50", "+1", " 1", "1 ", "1e3", "0x10", "007", "00",
        "--1", "1.1234567", "1234567890123", "NaN", "uno"}) {
    EXPECT_EQ(ReadDecimal(text), std::nullopt) << text;
  }
}

TEST(Decimals, AreWrittenAsTheyAreRead) {
  for (const char* text : {"0", "12", "1234.5", "-0.05", "0.000001"})
    EXPECT_EQ(DecimalText(*ReadDecimal(text)), text);
  EXPECT_EQ(FixedText(123450, 2), "1234.50");
  EXPECT_EQ(FixedText(5, 2), "0.05");
  EXPECT_EQ(FixedText(-5, 2), "-0.05");
  EXPECT_EQ(FixedText(7, 0), "7");
}

TEST(Decimals, HaveDigitsBeforeThePoint) {
  EXPECT_EQ(IntegerDigits(*ReadDecimal("0.99")), 0);
  EXPECT_EQ(IntegerDigits(*ReadDecimal("9.99")), 1);
  EXPECT_EQ(IntegerDigits(*ReadDecimal("-1234567.5")), 7);
}

TEST(Decimals, HalvesGoAwayFromZero) {
  EXPECT_EQ(UnitsOf(*ReadDecimal("2.675"), 2), 268);
  EXPECT_EQ(UnitsOf(*ReadDecimal("-2.675"), 2), -268);
  EXPECT_EQ(UnitsOf(*ReadDecimal("2.674"), 2), 267);
  EXPECT_EQ(UnitsOf(*ReadDecimal("2.5"), 3), 2500);
  EXPECT_EQ(ProductUnits(*ReadDecimal("0.333"), *ReadDecimal("10.05"), 2), 335);
  EXPECT_EQ(ProductUnits(*ReadDecimal("-2"), *ReadDecimal("0.1"), 2), -20);
}

TEST(Decimals, WhatDoesNotFitIsNothing) {
  const auto largest = *ReadDecimal("999999999999.999999");
  EXPECT_EQ(ProductUnits(largest, largest, 2), std::nullopt);
  EXPECT_EQ(UnitsOf({1, 0}, 18), 1'000'000'000'000'000'000);
  EXPECT_EQ(UnitsOf({10, 0}, 18), std::nullopt);
}

TEST(Decimals, SharesAreExactHoweverLargeTheProduct) {
  EXPECT_EQ(ShareOf(100, 1, 3), 33);
  EXPECT_EQ(ShareOf(-100, 1, 3), -33);
  EXPECT_EQ(ShareOf(1, 1, 2), 1);
  EXPECT_EQ(ShareOf(99'999'999'999, 50'000'000'000, 99'999'999'999), 50'000'000'000);
  EXPECT_DOUBLE_EQ(ToDouble(*ReadDecimal("1234.50")), 1234.5);
}

}  // namespace
}  // namespace puerta
