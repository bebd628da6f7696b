// Lines of fiscal.log.

#include "state/log.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

class CommandLog : public testing::Test {
 protected:
  CommandLog() { library_.state.LogComandos = 1; }

  std::vector<std::string> Lines() { return unit::TextsOf(world_.GetJournal(), Happening::kLog); }

  FakePlatform world_;
  Library library_{world_};
};

TEST_F(CommandLog, ALineHasDateAndTimeBeforeItsText) {
  world_.GetClock().SetDate(16, 11, 2026);
  world_.GetClock().SetTimeOfDay(2 * 3600 + 25 * 60 + 15);
  EscribirLog(library_, " - Comando : EP_CortaPapel()");
  EXPECT_EQ(Lines(),
            std::vector<std::string>{"[16/11/2026-02:25:15] - Comando : EP_CortaPapel()\r\n"});
  EXPECT_EQ(world_.GetJournal().Events().at(0).detail, ".\\fiscal.log");
}

TEST_F(CommandLog, BytesGoAsTheyAre) {
  const std::string text(" - Output : \x02 A\x1C\xD1\0\x03", 18);
  EscribirLog(library_, text);
  ASSERT_EQ(Lines().size(), 1u);
  EXPECT_NE(Lines()[0].find(text + "\r\n"), std::string::npos);
}

TEST_F(CommandLog, OnlyTheSettingOneWritesIt) {
  for (const std::int32_t setting : {0, 2, -1}) {
    library_.state.LogComandos = setting;
    EscribirLog(library_, "x");
  }
  EXPECT_TRUE(Lines().empty());
}

TEST_F(CommandLog, SwitchedOffItDoesNotEvenLookAtTheClock) {
  library_.state.LogComandos = 0;
  EscribirLog(library_, "x");
  EXPECT_EQ(world_.GetTrouble().Calls(Point::kDate), 0);
  EXPECT_EQ(world_.GetTrouble().Calls(Point::kTimeText), 0);
}

TEST_F(CommandLog, AReadOnlyFileIsNoFailure) {
  world_.GetLog().SetReadOnly(true);
  EXPECT_NO_THROW(EscribirLog(library_, "x"));
  EXPECT_TRUE(Lines().empty());
  EXPECT_EQ(library_.certainty.report.cause, Cause::kLogUnwritable);
}

class BoundedLog : public CommandLog {
 protected:
  // A line of 40 bytes.
  void Write(char letter) { EscribirLog(library_, std::string(17, letter)); }
  std::string Text(const char* file) { return world_.GetLog().Text(file); }
};

TEST_F(BoundedLog, WithoutItsKeyItGrows) {
  for (int n = 0; n < 100; ++n) Write('x');
  EXPECT_EQ(Text(".\\fiscal.log").size(), 4000u);
  EXPECT_EQ(Text(".\\fiscal.log.1"), "");
}

TEST_F(BoundedLog, TheLineThatWouldPassTheBoundBeginsAFileAndTheOldOneIsKeptOnce) {
  library_.certainty.settings.LogMaximo = 80;
  for (const char letter : {'a', 'b', 'c', 'd', 'e'}) {
    Write(letter);
    EXPECT_LE(Text(".\\fiscal.log").size(), 80u);
  }
  EXPECT_EQ(Text(".\\fiscal.log").size(), 40u);
  EXPECT_NE(Text(".\\fiscal.log").find("eeee"), std::string::npos);
  EXPECT_EQ(Text(".\\fiscal.log.1").size(), 80u);
  EXPECT_NE(Text(".\\fiscal.log.1").find("cccc"), std::string::npos);
}

TEST_F(BoundedLog, ALineLongerThanTheBoundIsWrittenAllTheSame) {
  library_.certainty.settings.LogMaximo = 10;
  Write('a');
  Write('b');
  EXPECT_EQ(Text(".\\fiscal.log").size(), 40u);
  EXPECT_EQ(Text(".\\fiscal.log.1").size(), 40u);
  EXPECT_EQ(library_.certainty.report.cause, Cause::kNone);
}

TEST_F(BoundedLog, OneThatCannotBeSetAsideGoesOn) {
  library_.certainty.settings.LogMaximo = 40;
  Write('a');
  world_.GetTrouble().Arm(Point::kLog, 1, false, Ailment::kFalla);
  Write('b');
  EXPECT_EQ(Text(".\\fiscal.log").size(), 80u);
  EXPECT_EQ(library_.certainty.report.cause, Cause::kNone);
}

TEST_F(CommandLog, AFailureNamesItsRoutineAndPlace) {
  LogFailure(library_, Overflow(), "EP_ReporteX", "aqui");
  ASSERT_EQ(Lines().size(), 1u);
  EXPECT_NE(Lines()[0].find("] - Error 6 (Overflow) in procedure EP_ReporteX of M\xF3"
                            "dulo ExportedProcedures - Linea: aqui\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace kestra
