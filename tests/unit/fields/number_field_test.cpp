// A host's amount becomes a field of fixed width.

#include "fields/number_field.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int16_t kMost = std::numeric_limits<std::int16_t>::max();
constexpr std::int16_t kLeast = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t kPoint = 1;

constexpr struct {
  const char* sentence;
  double value;
  Digits digits;
  std::string_view field;
} kFields[] = {
    {"twelve and a half with 4 and 2 digits", 12.5, {4, 2}, "001250"},
    {"the same with the point", 12.5, {4, 2, kPoint}, "0012.50"},
    {"digits alone have no decimals", 3, {2}, "03"},
    {"one decimal behind the point", 12.5, {4, 1, kPoint}, "0012.5"},
    {"a negative number is a character wider", -3, {3, 0}, "-003"},
    {"a negative number with the point", -12.5, {4, 2, kPoint}, "-0012.50"},
    {"zero is all zeros", 0, {3, 2}, "00000"},
    {"negative zero has no sign", -0.0, {3, 2}, "00000"},
    {"a negative amount that rounds to zero keeps its sign", -0.001, {3, 2}, "-00000"},
    {"a cent below one has its leading zero", 0.05, {1, 2, kPoint}, "0.05"},
    {"the point without decimals widens the field", 3, {3, 0, kPoint}, "0003"},
    {"only a 1 asks for the point", 12.5, {4, 2, 2}, "001250"},
    {"a minus one does not ask for the point", 12.5, {4, 2, -1}, "001250"},
    {"a number as wide as its field", 9999.99, {4, 2}, "999999"},
    {"halves go up though the double lies below", 1.005, {1, 2, kPoint}, "1.01"},
    {"halves go up though the double lies below, again", 2.675, {1, 2, kPoint}, "2.68"},
    {"an exact half goes away from zero", 0.125, {1, 2, kPoint}, "0.13"},
    {"an even neighbour does not attract a half", 2.5, {1, 0}, "3"},
    {"a half without decimals is one", 0.5, {1, 0}, "1"},
    {"a negative half goes away from zero too", -0.5, {1, 0}, "-1"},
    {"just below a half is dropped", 0.49999999999999, {1, 0}, "0"},
    {"the sixteenth digit does not count", 0.4999999999999999, {1, 0}, "1"},
    {"a carry runs through all nines", 9.995, {2, 2}, "1000"},
    {"a third keeps its decimals", 1.0 / 3, {1, 6, kPoint}, "0.333333"},
    {"decimals beyond the digits of a double are zeros", 0.5, {1, 20}, "050000000000000000000"},
    {"the smallest double is nothing", std::numeric_limits<double>::denorm_min(), {2, 2}, "0000"},
    {"a millionth of a cent keeps no digit", 0.00000001, {1, 2}, "000"},
};

TEST(NumberField, IsWritten) {
  for (const auto& row : kFields) {
    EXPECT_EQ(FormatearNumero(row.value, row.digits), row.field) << row.sentence;
  }
}

constexpr struct {
  const char* sentence;
  double value;
  Digits digits;
  std::int32_t failure;
} kRefused[] = {
    {"one digit too many", 10000, {4, 0}, 5},
    {"one digit too many after rounding", 9999.5, {4, 0}, 5},
    {"the leading zero does not fit", 0.5, {0, 2}, 5},
    {"the leading zero does not fit beside the point", 0.5, {0, 2, kPoint}, 5},
    {"the greatest amounts", 1e308, {9, 2}, 5},
    {"no digits at all", 0, {}, 5},
    {"negative decimals", 1, {9, -1}, 5},
    {"negative digits", 1, {-5, 2}, 5},
    {"negative digits of the least width", 1, {kLeast, 0}, 5},
    {"both negative", 1, {kLeast, kLeast}, 6},
    {"infinity", kInfinity, {9, 2}, 6},
    {"minus infinity", -kInfinity, {9, 2}, 6},
    {"no number at all", kNotANumber, {9, 2}, 6},
    {"digits beyond 16 bits", 1, {kMost, 1}, 6},
    {"the point takes the width beyond 16 bits", 1, {kMost, 0, kPoint}, 6},
    {"decimals beyond 16 bits", 1, {30000, 30000}, 6},
};

TEST(RefusedNumber, FailsWithItsNumber) {
  for (const auto& row : kRefused) {
    SCOPED_TRACE(row.sentence);
    EXPECT_EQ(FailureNumber([&] { return FormatearNumero(row.value, row.digits); }), row.failure);
  }
}

TEST(NumberField, TheWidestFieldIsFilledWithZeros) {
  const auto field = FormatearNumero(7, {kMost, 0});
  EXPECT_EQ(field, std::string(kMost - 1, '0') + "7");
}

TEST(NumberField, TheGreatestDoubleFitsAFieldOf309Digits) {
  const auto field = FormatearNumero(1e308, {309, 0});
  EXPECT_EQ(field, "1" + std::string(308, '0'));
}

// The digits after the point, without a field around them.

constexpr struct {
  const char* sentence;
  double value;
  std::string_view digits;
} kDifferences[] = {
    {"five cents", 0.05, "005"},
    {"three cents", 0.03, "003"},
    {"nothing", 0, "000"},
    {"thousands are not grouped", 1234.5, "123450"},
    {"millions are not grouped", 1234567.89, "123456789"},
    {"what is left of a subtraction", 100.03 - 100.0, "003"},
    {"less than zero has its sign", -0.05, "-005"},
    {"half a cent counts as one", 0.005, "001"},
};

TEST(Difference, IsWrittenInHundredths) {
  for (const auto& row : kDifferences) {
    EXPECT_EQ(HundredthsDigits(row.value), row.digits) << row.sentence;
  }
}

// The host's total, rounded before it is compared with the printer's.

constexpr struct {
  const char* sentence;
  double total;
  double rounded;
} kTotals[] = {
    {"four thousandths are dropped", 100.004, 100.00},
    {"six thousandths make a cent", 100.006, 100.01},
    {"a half goes to the even cent below", 0.125, 0.12},
    {"a half goes to the even cent above", 0.135, 0.14},
    {"the half of 1.005 is one", 1.005, 1.00},
    {"the half of 1.015 is one", 1.015, 1.02},
    {"a half above nines", 9.995, 10.00},
    {"half a cent is nothing", 0.005, 0},
    {"a cent and a half are two", 0.015, 0.02},
    {"a little more than half a cent is one", 0.00500001, 0.01},
    {"negative totals mirror positive ones", -1.015, -1.02},
    {"a sum of tenths is the number that was meant", 0.1 + 0.2, 0.3},
    {"a total that is whole", 12345, 12345},
    {"a ticket of the greatest printable total", 9999999999.99, 9999999999.99},
    {"thirteen digits before the point have hundredths", 9999999999999.126, 9999999999999.13},
    {"with fourteen it is as it is", 10000000000000.126, 10000000000000.126},
    {"more than any till, as it is", 1e300, 1e300},
    {"the greatest totals, as they are", 1e308, 1e308},
};

TEST(RoundedTotal, IsTheNearestHundredth) {
  for (const auto& row : kTotals) {
    EXPECT_EQ(RoundToHundredths(row.total), row.rounded) << row.sentence;
  }
}

TEST(RoundedTotal, OfNothingHasNoSign) {
  EXPECT_FALSE(std::signbit(RoundToHundredths(0)));
}

TEST(RoundedTotal, WhatIsNoNumberFails) {
  for (const double total : {kInfinity, -kInfinity, kNotANumber}) {
    EXPECT_EQ(FailureNumber([&] { return RoundToHundredths(total); }), 6);
  }
}

}  // namespace
}  // namespace kestra
