// A host's amount becomes a field of fixed width.

#include "fields/number_field.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "unit/failing.hpp"
#include "unit/rows.hpp"

namespace kestra {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int16_t kMost = std::numeric_limits<std::int16_t>::max();
constexpr std::int16_t kLeast = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t kPoint = 1;

struct FieldRow {
  const char* sentence;
  double value;
  Digits digits;
  std::string_view field;
};

class NumberField : public testing::TestWithParam<FieldRow> {};

TEST_P(NumberField, IsWritten) {
  EXPECT_EQ(FormatearNumero(GetParam().value, GetParam().digits), GetParam().field);
}

constexpr std::array kFields{
    FieldRow{"twelve and a half with 4 and 2 digits", 12.5, {4, 2}, "001250"},
    FieldRow{"the same with the point", 12.5, {4, 2, kPoint}, "0012.50"},
    FieldRow{"digits alone have no decimals", 3, {2}, "03"},
    FieldRow{"one decimal behind the point", 12.5, {4, 1, kPoint}, "0012.5"},
    FieldRow{"a negative number is a character wider", -3, {3, 0}, "-003"},
    FieldRow{"a negative number with the point", -12.5, {4, 2, kPoint}, "-0012.50"},
    FieldRow{"zero is all zeros", 0, {3, 2}, "00000"},
    FieldRow{"negative zero has no sign", -0.0, {3, 2}, "00000"},
    FieldRow{"a negative amount that rounds to zero keeps its sign", -0.001, {3, 2}, "-00000"},
    FieldRow{"a cent below one has its leading zero", 0.05, {1, 2, kPoint}, "0.05"},
    FieldRow{"the point without decimals widens the field", 3, {3, 0, kPoint}, "0003"},
    FieldRow{"only a 1 asks for the point", 12.5, {4, 2, 2}, "001250"},
    FieldRow{"a minus one does not ask for the point", 12.5, {4, 2, -1}, "001250"},
    FieldRow{"a number as wide as its field", 9999.99, {4, 2}, "999999"},
    FieldRow{"halves go up though the double lies below", 1.005, {1, 2, kPoint}, "1.01"},
    FieldRow{"halves go up though the double lies below, again", 2.675, {1, 2, kPoint}, "2.68"},
    FieldRow{"an exact half goes away from zero", 0.125, {1, 2, kPoint}, "0.13"},
    FieldRow{"an even neighbour does not attract a half", 2.5, {1, 0}, "3"},
    FieldRow{"a half without decimals is one", 0.5, {1, 0}, "1"},
    FieldRow{"a negative half goes away from zero too", -0.5, {1, 0}, "-1"},
    FieldRow{"just below a half is dropped", 0.49999999999999, {1, 0}, "0"},
    FieldRow{"the sixteenth digit does not count", 0.4999999999999999, {1, 0}, "1"},
    FieldRow{"a carry runs through all nines", 9.995, {2, 2}, "1000"},
    FieldRow{"a third keeps its decimals", 1.0 / 3, {1, 6, kPoint}, "0.333333"},
    FieldRow{
        "decimals beyond the digits of a double are zeros", 0.5, {1, 20}, "050000000000000000000"},
    FieldRow{"the smallest double is nothing",
             std::numeric_limits<double>::denorm_min(),
             {2, 2},
             "0000"},
    FieldRow{"a millionth of a cent keeps no digit", 0.00000001, {1, 2}, "000"},
};
INSTANTIATE_TEST_SUITE_P(Rows, NumberField, testing::ValuesIn(kFields), unit::BySentence());

struct RefusedRow {
  const char* sentence;
  double value;
  Digits digits;
  std::int32_t failure;
};

class RefusedNumber : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedNumber, FailsWithItsNumber) {
  EXPECT_EQ(unit::FailureOf([] { return FormatearNumero(GetParam().value, GetParam().digits); }),
            GetParam().failure);
}

constexpr std::array kRefused{
    RefusedRow{"one digit too many", 10000, {4, 0}, 5},
    RefusedRow{"one digit too many after rounding", 9999.5, {4, 0}, 5},
    RefusedRow{"the leading zero does not fit", 0.5, {0, 2}, 5},
    RefusedRow{"the leading zero does not fit beside the point", 0.5, {0, 2, kPoint}, 5},
    RefusedRow{"the greatest amounts", 1e308, {9, 2}, 5},
    RefusedRow{"no digits at all", 0, {}, 5},
    RefusedRow{"negative decimals", 1, {9, -1}, 5},
    RefusedRow{"negative digits", 1, {-5, 2}, 5},
    RefusedRow{"negative digits of the least width", 1, {kLeast, 0}, 5},
    RefusedRow{"both negative", 1, {kLeast, kLeast}, 6},
    RefusedRow{"infinity", kInfinity, {9, 2}, 6},
    RefusedRow{"minus infinity", -kInfinity, {9, 2}, 6},
    RefusedRow{"no number at all", kNotANumber, {9, 2}, 6},
    RefusedRow{"digits beyond 16 bits", 1, {kMost, 1}, 6},
    RefusedRow{"the point takes the width beyond 16 bits", 1, {kMost, 0, kPoint}, 6},
    RefusedRow{"decimals beyond 16 bits", 1, {30000, 30000}, 6},
};
INSTANTIATE_TEST_SUITE_P(Rows, RefusedNumber, testing::ValuesIn(kRefused), unit::BySentence());

TEST(NumberField, TheWidestFieldIsFilledWithZeros) {
  const auto field = FormatearNumero(7, {kMost, 0});
  EXPECT_EQ(field, std::string(kMost - 1, '0') + "7");
}

TEST(NumberField, TheGreatestDoubleFitsAFieldOf309Digits) {
  const auto field = FormatearNumero(1e308, {309, 0});
  EXPECT_EQ(field, "1" + std::string(308, '0'));
}

// The digits after the point, without a field around them.

struct DifferenceRow {
  const char* sentence;
  double value;
  std::string_view digits;
};

class Difference : public testing::TestWithParam<DifferenceRow> {};

TEST_P(Difference, IsWrittenInHundredths) {
  EXPECT_EQ(HundredthsDigits(GetParam().value), GetParam().digits);
}

constexpr std::array kDifferences{
    DifferenceRow{"five cents", 0.05, "005"},
    DifferenceRow{"three cents", 0.03, "003"},
    DifferenceRow{"nothing", 0, "000"},
    DifferenceRow{"thousands are not grouped", 1234.5, "123450"},
    DifferenceRow{"millions are not grouped", 1234567.89, "123456789"},
    DifferenceRow{"what is left of a subtraction", 100.03 - 100.0, "003"},
    DifferenceRow{"less than zero has its sign", -0.05, "-005"},
    DifferenceRow{"half a cent counts as one", 0.005, "001"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Difference, testing::ValuesIn(kDifferences), unit::BySentence());

// The host's total, rounded before it is compared with the printer's.

struct TotalRow {
  const char* sentence;
  double total;
  double rounded;
};

class RoundedTotal : public testing::TestWithParam<TotalRow> {};

TEST_P(RoundedTotal, IsTheNearestHundredth) {
  EXPECT_EQ(RoundToHundredths(GetParam().total), GetParam().rounded);
}

constexpr std::array kTotals{
    TotalRow{"four thousandths are dropped", 100.004, 100.00},
    TotalRow{"six thousandths make a cent", 100.006, 100.01},
    TotalRow{"a half goes to the even cent below", 0.125, 0.12},
    TotalRow{"a half goes to the even cent above", 0.135, 0.14},
    TotalRow{"the half of 1.005 is one", 1.005, 1.00},
    TotalRow{"the half of 1.015 is one", 1.015, 1.02},
    TotalRow{"a half above nines", 9.995, 10.00},
    TotalRow{"half a cent is nothing", 0.005, 0},
    TotalRow{"a cent and a half are two", 0.015, 0.02},
    TotalRow{"a little more than half a cent is one", 0.00500001, 0.01},
    TotalRow{"negative totals mirror positive ones", -1.015, -1.02},
    TotalRow{"a sum of tenths is the number that was meant", 0.1 + 0.2, 0.3},
    TotalRow{"a total that is whole", 12345, 12345},
    TotalRow{"a ticket of the greatest printable total", 9999999999.99, 9999999999.99},
    TotalRow{"thirteen digits before the point have hundredths", 9999999999999.126,
             9999999999999.13},
    TotalRow{"with fourteen it is as it is", 10000000000000.126, 10000000000000.126},
    TotalRow{"more than any till, as it is", 1e300, 1e300},
    TotalRow{"the greatest totals, as they are", 1e308, 1e308},
};
INSTANTIATE_TEST_SUITE_P(Rows, RoundedTotal, testing::ValuesIn(kTotals), unit::BySentence());

TEST(RoundedTotal, OfNothingHasNoSign) {
  EXPECT_FALSE(std::signbit(RoundToHundredths(0)));
}

TEST(RoundedTotal, WhatIsNoNumberFails) {
  for (const double total : {kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(unit::FailureOf([&] { return RoundToHundredths(total); }), 6);
  }
}

}  // namespace
}  // namespace kestra
