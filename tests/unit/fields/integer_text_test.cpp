// Numbers as people write them in a settings file and printers in an answer.

#include "fields/number_field.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "unit/failing.hpp"
#include "unit/rows.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kMismatch = 13;

struct IntegerRow {
  const char* sentence;
  std::string_view text;
  std::int32_t number;
  std::int32_t failure;        // 0: `number` is the answer
  std::int32_t short_failure;  // the same for 16 bits
};

class IntegerText : public testing::TestWithParam<IntegerRow> {};

TEST_P(IntegerText, IsReadIn32Bits) {
  const auto& row = GetParam();
  ASSERT_EQ(unit::FailureOf([&] { return ToNumber(row.text); }), row.failure);
  if (row.failure == 0) {
    EXPECT_EQ(ToNumber(row.text), row.number);
  }
}

TEST_P(IntegerText, IsReadIn16Bits) {
  const auto& row = GetParam();
  ASSERT_EQ(unit::FailureOf([&] { return ToShortNumber(row.text); }), row.short_failure);
  if (row.short_failure == 0) {
    EXPECT_EQ(ToShortNumber(row.text), row.number);
  }
}

TEST_P(IntegerText, IsANumberUnlessItIsAMismatch) {
  EXPECT_EQ(IsNumber(GetParam().text), GetParam().failure != kMismatch);
}

constexpr std::array kIntegers{
    IntegerRow{"plain digits", "9600", 9600, 0, 0},
    IntegerRow{"zero", "0", 0, 0, 0},
    IntegerRow{"zeros before", "00012", 12, 0, 0},
    IntegerRow{"more zeros before than a number has digits", "0000000000000012", 12, 0, 0},
    IntegerRow{"the front of longer digits", {"123456", 3}, 123, 0, 0},
    IntegerRow{"blanks around", "  12  ", 12, 0, 0},
    IntegerRow{"tabs around", "\t12\t", 12, 0, 0},
    IntegerRow{"a plus", "+12", 12, 0, 0},
    IntegerRow{"a minus", "-12", -12, 0, 0},
    IntegerRow{"a minus behind blanks", "  -12", -12, 0, 0},
    IntegerRow{"minus zero", "-0", 0, 0, 0},
    IntegerRow{"the greatest short number", "32767", 32767, 0, 0},
    IntegerRow{"one beyond the greatest short number", "32768", 32768, 0, kOverflow},
    IntegerRow{"the least short number", "-32768", -32768, 0, 0},
    IntegerRow{"one beyond the least short number", "-32769", -32769, 0, kOverflow},
    IntegerRow{"the greatest number", "2147483647", 2147483647, 0, kOverflow},
    IntegerRow{"one beyond the greatest number", "2147483648", 0, kOverflow, kOverflow},
    IntegerRow{"the least number", "-2147483648", -2147483647 - 1, 0, kOverflow},
    IntegerRow{"one beyond the least number", "-2147483649", 0, kOverflow, kOverflow},
    IntegerRow{"forty digits", "9999999999999999999999999999999999999999", 0, kOverflow, kOverflow},
    IntegerRow{"nothing", "", 0, kMismatch, kMismatch},
    IntegerRow{"blanks alone", "   ", 0, kMismatch, kMismatch},
    IntegerRow{"a sign alone", "-", 0, kMismatch, kMismatch},
    IntegerRow{"a plus alone", "+", 0, kMismatch, kMismatch},
    IntegerRow{"two signs", "--1", 0, kMismatch, kMismatch},
    IntegerRow{"a plus and a minus", "+-1", 0, kMismatch, kMismatch},
    IntegerRow{"a blank behind the sign", "- 1", 0, kMismatch, kMismatch},
    IntegerRow{"a sign behind", "1-", 0, kMismatch, kMismatch},
    IntegerRow{"letters", "abc", 0, kMismatch, kMismatch},
    IntegerRow{"letters behind digits", "12abc", 0, kMismatch, kMismatch},
    IntegerRow{"a blank between digits", "1 2", 0, kMismatch, kMismatch},
    IntegerRow{"a decimal point", "1.5", 0, kMismatch, kMismatch},
    IntegerRow{"a decimal comma", "1,5", 0, kMismatch, kMismatch},
    IntegerRow{"a separator of thousands", "9.600", 0, kMismatch, kMismatch},
    IntegerRow{"hexadecimal digits", "0x10", 0, kMismatch, kMismatch},
    IntegerRow{"an exponent", "1e3", 0, kMismatch, kMismatch},
    IntegerRow{"a zero byte behind", {"12\0", 3}, 0, kMismatch, kMismatch},
    IntegerRow{"a no-break space", "12\xA0", 0, kMismatch, kMismatch},
};
INSTANTIATE_TEST_SUITE_P(Rows, IntegerText, testing::ValuesIn(kIntegers), unit::BySentence());

struct RealRow {
  const char* sentence;
  std::string_view text;
  double number;
  std::int32_t failure;
};

class PrintedTotal : public testing::TestWithParam<RealRow> {};

TEST_P(PrintedTotal, IsRead) {
  const auto& row = GetParam();
  ASSERT_EQ(unit::FailureOf([&] { return ToRealNumber(row.text); }), row.failure);
  if (row.failure == 0) {
    EXPECT_EQ(ToRealNumber(row.text), row.number);
  }
}

constexpr std::array kReals{
    RealRow{"hundredths", "10000", 10000, 0},
    RealRow{"twelve digits with zeros before", "000000010000", 10000, 0},
    RealRow{"more digits than 32 bits hold", "999999999999", 999999999999.0, 0},
    RealRow{"blanks around", " 12 ", 12, 0},
    RealRow{"a minus", "-12", -12, 0},
    RealRow{"a plus", "+12", 12, 0},
    RealRow{"a point", "12.5", 12.5, 0},
    RealRow{"a point at the end", "12.", 12, 0},
    RealRow{"a point at the front", ".5", 0.5, 0},
    RealRow{"a point alone", ".", 0, kMismatch},
    RealRow{"two points", "1.2.3", 0, kMismatch},
    RealRow{"nothing", "", 0, kMismatch},
    RealRow{"blanks alone", "  ", 0, kMismatch},
    RealRow{"a sign alone", "-", 0, kMismatch},
    RealRow{"letters", "S", 0, kMismatch},
    RealRow{"an exponent", "1e3", 0, kMismatch},
    RealRow{"infinity in words", "inf", 0, kMismatch},
    RealRow{"no number in words", "nan", 0, kMismatch},
};
INSTANTIATE_TEST_SUITE_P(Rows, PrintedTotal, testing::ValuesIn(kReals), unit::BySentence());

TEST(PrintedTotal, BeyondADoubleOverflows) {
  EXPECT_EQ(unit::FailureOf([] { return ToRealNumber(std::string(400, '9')); }), kOverflow);
}

}  // namespace
}  // namespace kestra
