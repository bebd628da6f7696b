// The same numbers worked out in another way: as whole numbers, from what the C library prints.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "fields/number_field.hpp"

namespace kestra {
namespace {

constexpr unsigned kSeed = 20261121;

// |value| = mantissa x 10^power, to 15 digits.
struct Printed {
  std::uint64_t mantissa = 0;
  int power = 0;
};

Printed Print(double value) {
  std::array<char, 40> text{};
  (void)std::snprintf(text.data(), text.size(), "%.14e", std::fabs(value));
  std::string digits;
  const char* c = text.data();
  for (; *c != 'e'; ++c) {
    if (*c >= '0' && *c <= '9') digits += *c;
  }
  return {std::strtoull(digits.c_str(), nullptr, 10),
          static_cast<int>(std::strtol(c + 1, nullptr, 10)) - 14};
}

// |value| in units of the last decimal, as a whole number.
std::string Units(double value, int decimals, bool to_even) {
  const auto [mantissa, printed_power] = Print(value);
  const int power = printed_power + decimals;
  if (power >= 0) {
    const std::string zeros(mantissa == 0 ? 0 : static_cast<std::size_t>(power), '0');
    return std::to_string(mantissa) + zeros;
  }
  if (power < -18) return "0";
  std::uint64_t unit = 1;
  for (int i = 0; i < -power; ++i) unit *= 10;
  const auto whole = mantissa / unit;
  const auto twice = mantissa % unit * 2;
  const bool up = to_even ? twice > unit || (twice == unit && whole % 2 == 1) : twice >= unit;
  return std::to_string(whole + (up ? 1 : 0));
}

std::string Field(double value, const Digits& digits) {
  std::string units = Units(value, digits.decimals, false);
  const auto width =
      static_cast<std::size_t>(digits.integers) + static_cast<std::size_t>(digits.decimals);
  while (units.size() < width) units.insert(0, "0");
  if (digits.include_point == 1) {
    if (digits.decimals > 0) {
      units.insert(units.size() - static_cast<std::size_t>(digits.decimals), ".");
    } else {
      units.insert(0, "0");
    }
  }
  return value < 0 ? "-" + units : units;
}

// Amounts as tills have them, halves of a cent, and numbers of any size.
std::vector<double> Amounts() {
  std::mt19937_64 random(kSeed);
  std::uniform_int_distribution<std::int64_t> cents(-99'999'999, 99'999'999);
  std::uniform_int_distribution<std::int64_t> small(0, 20'000);
  std::uniform_real_distribution<double> part(-1, 1);
  std::uniform_int_distribution<int> power(-12, 13);
  std::vector<double> amounts;
  for (int i = 0; i < 20'000; ++i) {
    amounts.push_back(static_cast<double>(cents(random)) / 100);
    amounts.push_back(static_cast<double>(small(random) * 10 + 5) / 1000);
    amounts.push_back(part(random) * std::pow(10, power(random)));
    amounts.push_back(static_cast<double>(small(random)) / 64);
  }
  return amounts;
}

TEST(NumberOracle, FieldsOfEightyThousandAmounts) {
  constexpr std::array kShapes{Digits{15, 0, 0}, Digits{15, 0, 1}, Digits{15, 2, 0},
                               Digits{15, 2, 1}, Digits{14, 4, 1}, Digits{16, 8, 0}};
  std::size_t shape = 0;
  for (const double amount : Amounts()) {
    const auto& digits = kShapes[shape++ % kShapes.size()];
    ASSERT_EQ(FormatearNumero(amount, digits), Field(amount, digits))
        << std::hexfloat << amount << " with " << digits.decimals << " decimals";
  }
}

TEST(NumberOracle, DifferencesOfEightyThousandAmounts) {
  for (const double amount : Amounts()) {
    std::string units = Units(amount, 2, false);
    while (units.size() < 3) units.insert(0, "0");
    ASSERT_EQ(HundredthsDigits(amount), amount < 0 ? "-" + units : units)
        << std::hexfloat << amount;
  }
}

TEST(NumberOracle, TotalsOfEightyThousandAmounts) {
  for (const double amount : Amounts()) {
    const double hundredths = std::strtod(Units(amount, 2, true).c_str(), nullptr);
    const double expected = (amount < 0 ? -hundredths : hundredths) / 100;
    ASSERT_EQ(RoundToHundredths(amount), expected) << std::hexfloat << amount;
  }
}

// The printer's answer is a count of hundredths, divided by 100: the loop ends only when both ways
// lead to the same double.
TEST(NumberOracle, ARoundedTotalEqualsThePrintersCountOfHundredths) {
  std::mt19937_64 random(kSeed);
  std::uniform_int_distribution<std::int64_t> cents(0, 999'999'999'999);
  for (int i = 0; i < 50'000; ++i) {
    const double printer = static_cast<double>(cents(random)) / 100;
    ASSERT_EQ(RoundToHundredths(printer), printer) << std::hexfloat << printer;
  }
}

}  // namespace
}  // namespace kestra
