#include "protocol/judgement.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace kestra {
namespace {

using namespace std::string_view_literals;
using enum Next;
using enum Outcome;

constexpr auto kItem = "B\x1CPan"sv;
constexpr auto kText = "A\x1COferta"sv;
constexpr auto kDrawer = "{"sv;
constexpr auto kQuestion =
    "*\x1C"
    "A"sv;

struct Row {
  const char* sentence;
  std::string_view command;
  Words words;
  Next next;
  Outcome if_absent;
  Before before{};
};

const Row kRows[] = {
    {"all is well", kItem, {0x0080, 0x1600}, kEnd, kDone},
    {"paper that ended with it", kItem, {0xC080, 0x1600}, kEnd, kDone},
    {"a field that is wrong may have been spoilt on its way",
     kItem,
     {0x0080, 0x9610},
     kSendOnceMore,
     kRefused},
    {"but not twice", kItem, {0x0080, 0x9610}, kEnd, kRefused, {.refused = true}},
    {"a wrong moment is no damage", kItem, {0x0080, 0x9620}, kEnd, kRefused},
    {"refused though another frame went before",
     kItem,
     {0x0080, 0x9620},
     kAskBooks,
     kRefused,
     {.doubted = true}},
    {"a text that is refused has no book to ask",
     kText,
     {0x0080, 0x9620},
     kEnd,
     kRefused,
     {.doubted = true}},
    {"a low battery: the books decide", kItem, {0x0080, 0x9604}, kAskBooks, kDone},
    {"a low battery: nothing refuses the text", kText, {0x0080, 0x9604}, kEnd, kDone},
    {"a day too long", kItem, {0x0080, 0x9E00}, kAskBooks, kDone},
    {"no paper: not carried out, and paper can be put in",
     kItem,
     {0xC084, 0x1600},
     kCure,
     kRefused},
    {"the cover is open", kText, {0x808C, 0x1600}, kCure, kRefused},
    {"a failure that nobody can help", kItem, {0x8084, 0x1600}, kAskBooks, kRefused},
    {"the same for what has no book", kText, {0x8084, 0x1600}, kEnd, kRefused},
    {"off line and nothing else", kItem, {0x8088, 0x1600}, kAskBooks, kUnknown},
    {"off line, and no book", kText, {0x8088, 0x1600}, kEnd, kUnknown},
    {"a drawer needs no paper", kDrawer, {0xC08C, 0x1600}, kEnd, kDone},
    {"a question is answered whatever else is wrong", kQuestion, {0xC08C, 0x9E04}, kEnd, kDone},
    {"but for a question that is refused", kQuestion, {0x0080, 0x9620}, kEnd, kRefused},
};

TEST(Judgement, AnAnswerSaysWhatCameOfItsCommandOrWhoMayTell) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.sentence);
    const auto judgement = JudgeAnswer(MethodOf(row.command), row.words, row.before);
    EXPECT_EQ(judgement.next, row.next);
    EXPECT_EQ(judgement.reading.if_absent.outcome, row.if_absent);
    EXPECT_TRUE(judgement.reading.answered);
  }
}

}  // namespace
}  // namespace kestra
