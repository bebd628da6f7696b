// Numbers as people write them in a settings file and printers in an answer.

#include "fields/number_field.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "fakes/failure_number.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kMismatch = 13;

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::int32_t number;
  std::int32_t failure;        // 0: `number` is the answer
  std::int32_t short_failure;  // the same for 16 bits
} kIntegers[] = {
    {"plain digits", "9600", 9600, 0, 0},
    {"zero", "0", 0, 0, 0},
    {"zeros before", "00012", 12, 0, 0},
    {"more zeros before than a number has digits", "0000000000000012", 12, 0, 0},
    {"the front of longer digits", {"123456", 3}, 123, 0, 0},
    {"blanks around", "  12  ", 12, 0, 0},
    {"tabs around", "\t12\t", 12, 0, 0},
    {"a plus", "+12", 12, 0, 0},
    {"a minus", "-12", -12, 0, 0},
    {"a minus behind blanks", "  -12", -12, 0, 0},
    {"minus zero", "-0", 0, 0, 0},
    {"the greatest short number", "32767", 32767, 0, 0},
    {"one beyond the greatest short number", "32768", 32768, 0, kOverflow},
    {"the least short number", "-32768", -32768, 0, 0},
    {"one beyond the least short number", "-32769", -32769, 0, kOverflow},
    {"the greatest number", "2147483647", 2147483647, 0, kOverflow},
    {"one beyond the greatest number", "2147483648", 0, kOverflow, kOverflow},
    {"the least number", "-2147483648", -2147483647 - 1, 0, kOverflow},
    {"one beyond the least number", "-2147483649", 0, kOverflow, kOverflow},
    {"forty digits", "9999999999999999999999999999999999999999", 0, kOverflow, kOverflow},
    {"nothing", "", 0, kMismatch, kMismatch},
    {"blanks alone", "   ", 0, kMismatch, kMismatch},
    {"a sign alone", "-", 0, kMismatch, kMismatch},
    {"a plus alone", "+", 0, kMismatch, kMismatch},
    {"two signs", "--1", 0, kMismatch, kMismatch},
    {"a plus and a minus", "+-1", 0, kMismatch, kMismatch},
    {"a blank behind the sign", "- 1", 0, kMismatch, kMismatch},
    {"a sign behind", "1-", 0, kMismatch, kMismatch},
    {"letters", "abc", 0, kMismatch, kMismatch},
    {"letters behind digits", "12abc", 0, kMismatch, kMismatch},
    {"a blank between digits", "1 2", 0, kMismatch, kMismatch},
    {"a decimal point", "1.5", 0, kMismatch, kMismatch},
    {"a decimal comma", "1,5", 0, kMismatch, kMismatch},
    {"a separator of thousands", "9.600", 0, kMismatch, kMismatch},
    {"hexadecimal digits", "0x10", 0, kMismatch, kMismatch},
    {"an exponent", "1e3", 0, kMismatch, kMismatch},
    {"a zero byte behind", {"12\0", 3}, 0, kMismatch, kMismatch},
    {"a no-break space", "12\xA0", 0, kMismatch, kMismatch},
};

template <typename Read, typename Number>
void ExpectRead(Read read, std::string_view text, Number number, std::int32_t failure) {
  Number got{};
  EXPECT_EQ(FailureNumber([&] { return got = static_cast<Number>(read(text)); }), failure);
  EXPECT_EQ(got, failure == 0 ? number : Number{});
}

TEST(IntegerText, IsReadIn32BitsAndIn16AndIsANumberUnlessItIsAMismatch) {
  for (const auto& row : kIntegers) {
    SCOPED_TRACE(row.sentence);
    ExpectRead(ToNumber, row.text, row.number, row.failure);
    ExpectRead(ToShortNumber, row.text, row.number, row.short_failure);
    EXPECT_EQ(IsNumber(row.text), row.failure != kMismatch);
  }
}

constexpr struct {
  const char* sentence;
  std::string_view text;
  double number;
  std::int32_t failure;
} kReals[] = {
    {"hundredths", "10000", 10000, 0},
    {"twelve digits with zeros before", "000000010000", 10000, 0},
    {"more digits than 32 bits hold", "999999999999", 999999999999.0, 0},
    {"blanks around", " 12 ", 12, 0},
    {"a minus", "-12", -12, 0},
    {"a plus", "+12", 12, 0},
    {"a point", "12.5", 12.5, 0},
    {"a point at the end", "12.", 12, 0},
    {"a point at the front", ".5", 0.5, 0},
    {"a point alone", ".", 0, kMismatch},
    {"two points", "1.2.3", 0, kMismatch},
    {"nothing", "", 0, kMismatch},
    {"blanks alone", "  ", 0, kMismatch},
    {"a sign alone", "-", 0, kMismatch},
    {"letters", "S", 0, kMismatch},
    {"an exponent", "1e3", 0, kMismatch},
    {"infinity in words", "inf", 0, kMismatch},
    {"no number in words", "nan", 0, kMismatch},
};

TEST(PrintedTotal, IsRead) {
  for (const auto& row : kReals) {
    SCOPED_TRACE(row.sentence);
    ExpectRead(ToRealNumber, row.text, row.number, row.failure);
  }
}

TEST(PrintedTotal, BeyondADoubleOverflows) {
  EXPECT_EQ(FailureNumber([] { return ToRealNumber(std::string(400, '9')); }), kOverflow);
}

}  // namespace
}  // namespace kestra
