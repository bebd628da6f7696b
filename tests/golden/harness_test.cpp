// The harness itself: what makes a case bad, and that the texts of a case stand for the right
// bytes.
#include <gtest/gtest.h>

#include "golden/frame_check.hpp"
#include "golden/session.hpp"
#include "golden/visible.hpp"

namespace kestra::golden {
namespace {

struct Row {
  const char* name;
  const char* text;
  const char* fault;
};

TEST(Harness, SaysWhatIsWrongWithACase) {
  const Row rows[] = {
      {"no reason given", "call EP_Copias 1\n",
       "line 1: say first, in a comment, why this case exists"},
      {"unknown input", "# why\nsing\n", "line 2: unknown input sing"},
      {"unknown call", "# why\ncall EP_Sing\n", "line 2: no such call EP_Sing"},
      {"too few arguments", "# why\ncall EP_Copias\n", "line 2: EP_Copias takes 1 arguments"},
      {"a reply nobody asked for", "# why\nreply ok 0000|0000\ncall EP_Copias 1\n",
       "the printer still had replies to give"},
      {"an answer nobody asked for", "# why\noperator yes\ncall EP_Copias 1\n",
       "the operator still had answers to give"},
      {"nothing shown", "# why\nini CPI=10\n", "this case shows nothing"},
      {"unknown step", "# why\nreply sing\n", "line 2: unknown step sing"},
      {"good", "# why\ncall EP_Copias 1\n> = 0\n", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(Play(row.text).fault, row.fault) << row.name;
}

TEST(Harness, WritesAMissingExpectationSoThatTheCaseDiffers) {
  EXPECT_EQ(Play("# why\ncall EP_Copias 1\n").text, "# why\ncall EP_Copias 1\n> = 0\n");
}

TEST(Harness, ReplacesAWrongExpectationSoThatTheCaseDiffers) {
  EXPECT_EQ(Play("# why\ncall EP_Copias 1\n> = 7\n").text, "# why\ncall EP_Copias 1\n> = 0\n");
}

TEST(Harness, ShowsEveryByteAndReadsItBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(FromVisible(Visible(bytes)), bytes) << byte;
  }
  EXPECT_EQ(Visible("\x02\xf1\x80\x1f<"), "<stx>ñ€<1f><3c>");
}

TEST(Harness, KnowsAWholeFrame) {
  EXPECT_EQ(Checksum("\x02 K\x03"), "0070");
  EXPECT_TRUE(
      IsFrame("\x02 K\x03"
              "0070"));
  EXPECT_FALSE(
      IsFrame("\x02 K\x03"
              "0071"));
  EXPECT_FALSE(
      IsFrame("\x02\x1fK\x03"
              "006F"));
  EXPECT_FALSE(IsFrame("K"));
}

}  // namespace
}  // namespace kestra::golden
