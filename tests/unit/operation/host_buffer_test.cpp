// Texts cross the border between the host's buffers and the library.

#include "operation/host_buffer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <string_view>

namespace kestra {
namespace {

using namespace std::string_view_literals;

constexpr TextSettings kAsEver;
constexpr TextSettings kTerminated{.TextosTerminados = 1};
constexpr TextSettings kUtf8{.TextosTerminados = 2};
constexpr TextSettings kNearest{.Transliterar = 1};
constexpr TextSettings kNearestUtf8{.TextosTerminados = 2, .Transliterar = 1};

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

TEST(HostText, HasExactlyTheStatedBytes) {
  const std::string host = "ABCDEF";
  EXPECT_EQ(LeerCadena(kAsEver, host.data(), 4), "ABCD");
  EXPECT_EQ(LeerCadena(kAsEver, host.data(), 1), "A");
}

TEST(HostText, IsNotTrimmed) {
  EXPECT_EQ(LeerCadena(kAsEver, " A  ", 4), " A  ");
}

TEST(HostText, AZeroByteInsideDoesNotEndIt) {
  const std::array<char, 5> host{'A', '\0', 'B', '\0', '\0'};
  EXPECT_EQ(LeerCadena(kAsEver, host.data(), 5), std::string(host.data(), host.size()));
}

TEST(HostText, OfNoLengthIsEmptyWhateverThePointer) {
  EXPECT_EQ(LeerCadena(kAsEver, "ABC", 0), "");
  EXPECT_EQ(LeerCadena(kAsEver, nullptr, 0), "");
}

TEST(HostText, OfNegativeLengthIsEmptyWhateverThePointer) {
  for (const std::int32_t length : {-1, -32768, kLeast}) {
    EXPECT_EQ(LeerCadena(kAsEver, "ABC", length), "");
    EXPECT_EQ(LeerCadena(kAsEver, nullptr, length), "");
  }
}

TEST(HostText, ANullPointerReadsAsBlanks) {
  EXPECT_EQ(LeerCadena(kAsEver, nullptr, 5), "     ");
}

// What the host passes, mostly with something behind its end.
constexpr struct {
  const char* sentence;
  const TextSettings& settings;
  std::string_view host;
  std::int32_t length;
  std::string_view text;
} kRead[] = {
    {"a short text ends with its zero", kTerminated, "AB\0XY"sv, 5, "AB   "},
    {"no text is blanks", kTerminated, "\0XY"sv, 3, "   "},
    {"a text of the very length needs no zero", kTerminated, "ABC", 3, "ABC"},
    {"a longer text is cut", kTerminated, "ABCDEF", 3, "ABC"},
    {"bytes beyond ASCII are as they are", kTerminated, "\xD1\xE1\0X"sv, 4, "\xD1\xE1  "},
    {"UTF-8 becomes windows-1252", kUtf8, "a\u00F1o \u20AC\0X"sv, 8, "a\xF1o \x80   "},
    {"the zero ends UTF-8 too", kUtf8, "A\0\u00F1"sv, 4, "A   "},
    {"characters count, not bytes", kUtf8, "\u00F1\u20AC\u00E1Z", 3, "\xF1\x80\xE1"},
    {"what the code page lacks is a dash", kUtf8, "a\u0416\U0001F600z\0"sv, 4, "a--z"},
    {"a lone second byte is a dash", kUtf8, "a\x80z\0"sv, 4, "a-z "},
    {"a byte that begins nothing is a dash", kUtf8, "a\xFFz\0"sv, 4, "a-z "},
    {"a character cut short by its end is one for each byte", kUtf8, "a\xE2\x82\0X"sv, 4, "a-- "},
    {"a character cut short by a letter loses that alone", kUtf8, "\xC3Z\0"sv, 3, "-Z "},
    {"a second form of a letter is no letter", kUtf8, "\xC1\x81\xE0\x81\x81\0"sv, 6, "----- "},
    {"windows-1252 by mistake loses its letters", kUtf8, "Jos\xE9 P\0"sv, 6, "Jos- P"},
    {"too many dashes are cut", kUtf8, "\xE2\x82Z\0"sv, 2, "--"},
    {"the nearest letter instead of a dash", kNearestUtf8, "\u0151\u0416\xFF\0"sv, 4, "o-- "},
    {"and of what the printer does not take", kNearestUtf8, "Le\u00F3n \u20AC\0"sv, 8, "Leon EUR"},
    {"what the printer takes stays", kNearestUtf8, "a\u00F1o\0"sv, 3, "a\xF1o"},
    {"an accent of its own goes", kNearestUtf8, "Jose\u0301 P\0"sv, 7, "Jose P "},
    {"the nearest letters of windows-1252", kNearest, "\xC1rbol \xB0", 7, "Arbol o"},
    {"are cut to the length", kNearest, "AB\x80", 3, "ABE"},
    {"a zero byte is a blank then", kNearest, "A\0B"sv, 3, "A B"},
    {"no length is nothing", kUtf8, "A", 0, ""},
};

TEST(HostText, IsReadAsTheSettingsSay) {
  for (const auto& row : kRead) {
    EXPECT_EQ(LeerCadena(row.settings, row.host.data(), row.length), row.text) << row.sentence;
  }
}

TEST(HostText, ANullPointerReadsAsBlanksInAllModes) {
  for (const auto* settings : {&kTerminated, &kUtf8, &kNearest, &kNearestUtf8}) {
    EXPECT_EQ(LeerCadena(*settings, nullptr, 3), "   ");
    EXPECT_EQ(ReadTerminatedText(*settings, nullptr), "");
  }
}

constexpr struct {
  const char* sentence;
  const TextSettings& settings;
  const char* host;
  std::string_view text;
} kReadThrough[] = {
    {"as ever", kAsEver, "a\xF1o \x80", "a\xF1o \x80"},
    {"terminated", kTerminated, "a\xF1o \x80", "a\xF1o \x80"},
    {"in UTF-8", kUtf8, "a\u00F1o \u20AC", "a\xF1o \x80"},
    {"with the nearest letters", kNearest, "a\xF1o \x80", "a\xF1o EUR"},
    {"with those of UTF-8", kNearestUtf8, "a\u00F1o \u20AC", "a\xF1o EUR"},
    {"nothing", kUtf8, "", ""},
};

TEST(TerminatedText, IsReadAsTheSettingsSay) {
  for (const auto& row : kReadThrough) {
    EXPECT_EQ(ReadTerminatedText(row.settings, row.host), row.text) << row.sentence;
  }
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
    EXPECT_EQ(DevolverCadena(kAsEver, buffer.data(), row.text, row.size), row.count);
    EXPECT_EQ(buffer,
              std::string(row.copied) + std::string(kBufferSize - row.copied.size(), kUntouched));
    EXPECT_EQ(DevolverCadena(kAsEver, nullptr, row.text, row.size), row.count);
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
    EXPECT_EQ(HandOver(kAsEver, buffer.data(), row.text, row.size), length);
    EXPECT_EQ(buffer,
              std::string(row.written) + std::string(kBufferSize - row.written.size(), kUntouched));
    EXPECT_EQ(HandOver(kAsEver, nullptr, row.text, row.size), length);
  }
}

// Results in the modes that end them with a zero; the bytes that DevolverCadena and HandOver write.
constexpr struct {
  const char* sentence;
  const TextSettings& settings;
  std::string_view text;
  std::int32_t size;
  std::string_view written;
} kEnded[] = {
    {"a shorter text has its zero", kTerminated, "AB", 8, "AB\0"sv},
    {"a text of the very size has none", kTerminated, "ABC", 3, "ABC"},
    {"a longer text is cut", kTerminated, "ABCDE", 3, "ABC"},
    {"no text is a zero", kTerminated, "", 8, "\0"sv},
    {"windows-1252 stays so", kTerminated, "a\xF1o", 8, "a\xF1o\0"sv},
    {"or becomes UTF-8", kUtf8, "a\xF1o \x80", 9, "a\u00F1o \u20AC\0"sv},
    {"of the very size", kUtf8, "a\xF1o", 4, "a\u00F1o"},
    {"no character is torn", kUtf8, "a\xF1o", 2, "a\0"sv},
    {"nor one of three bytes", kUtf8, "\x80", 2, "\0"sv},
    {"no room is not written to", kUtf8, "ABC", 0, ""},
    {"a negative size neither", kTerminated, "ABC", kLeast, ""},
};

TEST(EndedText, HasAZeroWhereThereIsRoomAndWholeCharacters) {
  for (const auto& row : kEnded) {
    SCOPED_TRACE(row.sentence);
    const auto wanted =
        std::string(row.written) + std::string(kBufferSize - row.written.size(), kUntouched);
    std::string returned(kBufferSize, kUntouched);
    DevolverCadena(row.settings, returned.data(), row.text, row.size);
    EXPECT_EQ(returned, wanted);
    std::string handed(kBufferSize, kUntouched);
    HandOver(row.settings, handed.data(), row.text, row.size);
    EXPECT_EQ(handed, wanted);
    DevolverCadena(row.settings, nullptr, row.text, row.size);
  }
}

TEST(EndedText, PaddedTextsEndBehindTheirLastLetter) {
  std::string buffer(kBufferSize, kUntouched);
  DevolverCadena(kTerminated, buffer.data(), "AB      ", 8);
  EXPECT_EQ(buffer, std::string("AB\0", 3) + std::string(9, kUntouched));
}

TEST(EndedText, TheLengthIsThatOfTheWholeTextInUtf8) {
  EXPECT_EQ(HandOver(kUtf8, nullptr, "a\xF1o \x80", 3), 8);
}

}  // namespace
}  // namespace kestra
