// Texts cross the border between the host's buffers and the library.

#include "operation/host_buffer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <string_view>

namespace kestra {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

TEST(HostText, HasExactlyTheStatedBytes) {
  const std::string host = "ABCDEF";
  EXPECT_EQ(LeerCadena(host.data(), 4), "ABCD");
  EXPECT_EQ(LeerCadena(host.data(), 1), "A");
}

TEST(HostText, IsNotTrimmed) {
  EXPECT_EQ(LeerCadena(" A  ", 4), " A  ");
}

TEST(HostText, AZeroByteInsideDoesNotEndIt) {
  const std::array<char, 5> host{'A', '\0', 'B', '\0', '\0'};
  EXPECT_EQ(LeerCadena(host.data(), 5), std::string(host.data(), host.size()));
}

TEST(HostText, OfNoLengthIsEmptyWhateverThePointer) {
  EXPECT_EQ(LeerCadena("ABC", 0), "");
  EXPECT_EQ(LeerCadena(nullptr, 0), "");
}

TEST(HostText, OfNegativeLengthIsEmptyWhateverThePointer) {
  for (const std::int32_t length : {-1, -32768, kLeast}) {
    EXPECT_EQ(LeerCadena("ABC", length), "");
    EXPECT_EQ(LeerCadena(nullptr, length), "");
  }
}

TEST(HostText, ANullPointerReadsAsBlanks) {
  EXPECT_EQ(LeerCadena(nullptr, 5), "     ");
}

constexpr std::size_t kBufferSize = 12;
constexpr char kUntouched = '#';

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::int32_t size;
  std::int32_t count;
  std::string_view copied;
} kGiven[] = {
    {"a longer text is cut to the buffer", "ABCDE", 3, 3, "ABC"},
    {"a text of the very size", "ABC", 3, 3, "ABC"},
    {"a shorter text leaves the rest as it was", "AB", 8, 2, "AB"},
    {"trailing blanks are not copied", "AB      ", 8, 2, "AB"},
    {"a leading blank shifts what is copied", " AB", 8, 2, " A"},
    {"blanks on both sides shift it too", "  AB  ", 8, 2, "  "},
    {"blanks alone are nothing", "    ", 8, 0, ""},
    {"no text is nothing", "", 8, 0, ""},
    {"no room copies nothing", "ABC", 0, 0, ""},
    {"a negative size copies nothing", "ABC", -3, -3, ""},
    {"the least size copies nothing", "ABC", kLeast, kLeast, ""},
    {"a huge size is bounded by the text", "ABC", kMost, 3, "ABC"},
    {"a zero byte is copied like any other", {"A\0B", 3}, 8, 3, {"A\0B", 3}},
};

TEST(ResultText, FillsTheHostsBufferOnlySoFarAndIsCountedForANullPointerToo) {
  for (const auto& row : kGiven) {
    SCOPED_TRACE(row.sentence);
    std::string buffer(kBufferSize, kUntouched);
    EXPECT_EQ(DevolverCadena(buffer.data(), row.text, row.size), row.count);
    EXPECT_EQ(buffer,
              std::string(row.copied) + std::string(kBufferSize - row.copied.size(), kUntouched));
    EXPECT_EQ(DevolverCadena(nullptr, row.text, row.size), row.count);
  }
}

constexpr struct {
  const char* sentence;
  std::string_view text;
  std::int32_t size;
  std::string_view written;
} kHanded[] = {
    {"a shorter text has its zero", "AB ", 8, {"AB \0", 4}},
    {"a text of the very size has none", "ABC", 3, "ABC"},
    {"a longer text is cut and tells its length", "ABCDE", 3, "ABC"},
    {"no text is a zero", "", 8, {"\0", 1}},
    {"no room is not written to", "ABC", 0, ""},
    {"a negative size neither", "ABC", kLeast, ""},
    {"a huge size is bounded by the text", "ABC", kMost, {"ABC\0", 4}},
};

TEST(HandedText, EndsWithAZeroWhereThereIsRoomForOne) {
  for (const auto& row : kHanded) {
    SCOPED_TRACE(row.sentence);
    std::string buffer(kBufferSize, kUntouched);
    const auto length = static_cast<std::int32_t>(row.text.size());
    EXPECT_EQ(HandOver(buffer.data(), row.text, row.size), length);
    EXPECT_EQ(buffer,
              std::string(row.written) + std::string(kBufferSize - row.written.size(), kUntouched));
    EXPECT_EQ(HandOver(nullptr, row.text, row.size), length);
  }
}

}  // namespace
}  // namespace kestra
