// An answer is cut into the fields that the operations read.

#include "protocol/answer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace kestra {
namespace {

#define FS "\x1C"
#define STX "\x02"
#define ETX "\x03"

constexpr struct {
  const char* sentence;
  std::string_view answers;
  std::string_view field;
  std::string_view left;
} kCuts[] = {
    {"what stands before the first separator is skipped", STX " K" FS "0000" FS "0600" ETX, "0000",
     FS "0600" ETX},
    {"the separator left behind begins the next field", FS "0600" FS "x" ETX, "0600", FS "x" ETX},
    {"the last field ends at the end byte", FS "last" ETX "0123", "last", ETX "0123"},
    {"behind the last field there is an empty one", ETX "0123", "", ETX "0123"},
    {"without a separator everything before the end byte is a field", "abc" ETX "0123", "abc",
     ETX "0123"},
    {"two separators enclose an empty field", FS FS "x" ETX, "", FS "x" ETX},
    {"a separator right before the end byte has an empty field", FS ETX, "", ETX},
    {"without an end nothing is cut", FS "abc", "", FS "abc"},
    {"without separator and end nothing is cut", "abc", "", "abc"},
    {"a separator beats an end byte before it", FS "a" ETX "b" FS "c", "a" ETX "b", FS "c"},
    {"an end byte before the first separator is skipped with the rest", "a" ETX "b" FS "c" ETX, "c",
     ETX},
    {"nothing is nothing", "", "", ""},
};

TEST(NextField, IsCutOffTheFront) {
  for (const auto& row : kCuts) {
    SCOPED_TRACE(row.sentence);
    std::string answers(row.answers);
    EXPECT_EQ(SiguienteCampo(answers), row.field);
    EXPECT_EQ(answers, row.left);
  }
}

// Fields as the answer of a printer carries them.
std::string AnswerWith(const std::vector<std::string>& fields) {
  std::string answer = STX " K";
  for (const auto& field : fields) answer.append(FS).append(field);
  return answer.append(ETX "0000");
}

Fields Split(std::string answer) {
  return CutFields(answer);
}

TEST(SplitAnswer, StatusWordsAloneLeaveTheDataEmpty) {
  const auto fields = Split(AnswerWith({"8080", "0600"}));
  EXPECT_EQ(fields[0], "8080");
  EXPECT_EQ(fields[1], "0600");
  for (std::size_t i = 2; i < fields.size(); ++i) EXPECT_EQ(fields[i], "") << i;
}

TEST(SplitAnswer, AnEmptyFieldKeepsTheNumbersOfThoseBehindIt) {
  const auto fields = Split(AnswerWith({"0000", "0600", "", "S", "", "last"}));
  EXPECT_EQ(fields[2], "");
  EXPECT_EQ(fields[3], "S");
  EXPECT_EQ(fields[4], "");
  EXPECT_EQ(fields[5], "last");
  EXPECT_EQ(fields[6], "");
}

TEST(SplitAnswer, AnyCountOfFieldsGivesTheFirstFifteen) {
  std::vector<std::string> sent;
  for (int count = 1; count <= 20; ++count) {
    sent.push_back("f" + std::to_string(count));
    const auto fields = Split(AnswerWith(sent));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(fields[i], i < sent.size() ? sent[i] : "") << count << " fields, the " << i;
    }
  }
}

TEST(SplitAnswer, TheSyntheticAnswerOfSilenceHasZerosAndItsWords) {
  const auto fields = Split(STX "0" FS "0" FS "0" FS "ERROR DE COMUNICACION" ETX);
  EXPECT_EQ(fields[0], "0");
  EXPECT_EQ(fields[1], "0");
  EXPECT_EQ(fields[2], "ERROR DE COMUNICACION");
}

TEST(SplitAnswer, OfNothingAllFieldsAreEmpty) {
  for (const auto& field : Split("")) EXPECT_EQ(field, "");
}

TEST(SplitAnswer, TheChecksumIsNoField) {
  std::string answer = AnswerWith({"0000", "0600", "x"});
  CutFields(answer);
  EXPECT_EQ(answer, ETX "0000");
}

TEST(Listing, ShowsAllFifteenLabels) {
  std::string expected = "Respuestas al ultimo comando: \r\r";
  for (int k = 1; k <= 15; ++k) {
    expected += "Respuesta_" + std::to_string(k) + ": " + (k < 15 ? "\r" : "");
  }
  EXPECT_EQ(ListingText(Fields{}), expected);
}

TEST(Listing, ShowsEachFieldUnderItsLabel) {
  Fields fields;
  for (std::size_t i = 0; i < fields.size(); ++i) fields[i] = std::string(1, char('a' + i));
  EXPECT_EQ(ListingText(fields),
            "Respuestas al ultimo comando: \r\r"
            "Respuesta_1: a\rRespuesta_2: b\rRespuesta_3: c\rRespuesta_4: d\rRespuesta_5: e\r"
            "Respuesta_6: f\rRespuesta_7: g\rRespuesta_8: h\rRespuesta_9: i\rRespuesta_10: j\r"
            "Respuesta_11: k\rRespuesta_12: l\rRespuesta_13: m\rRespuesta_14: n\rRespuesta_15: o");
}

#undef ETX
#undef STX
#undef FS

}  // namespace
}  // namespace kestra
