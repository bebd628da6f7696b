// Each thing in the world that can fail, failing: what the host gets and what the log says.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.hpp"
#include "exports/exports.hpp"
#include "fakes/fake_platform.hpp"
#include "kestra/kestra.h"
#include "unit/world.hpp"

namespace kestra {
namespace {

struct TroubleRow {
  const char* sentence;
  Point point;
  std::string_view procedure = "Enviar";  // that the log names; empty: no failure is logged
  std::int32_t result = 1;
  std::string_view key = "Transporte";  // a setting that leads there; this one is never read
  std::string_view value = "0";
  const char* printer = "0000";  // words of the answers
  const char* fiscal = "0600";
  std::int32_t(KESTRA_CALL* call)() = EP_CortaPapel;
};

// The failure that the fakes bring up by themselves.
std::string WordsOfTheFake() {
  Trouble trouble;
  trouble.Arm(Point::kLog, 1, false, Ailment::kFalla);
  try {
    trouble.Reach(Point::kLog);
    return "nothing";
  } catch (const Failure& failure) {
    return std::to_string(failure.Number()) + " (" + failure.Description() + ")";
  }
}

struct AilmentRow {
  Ailment ailment;
  std::string words;
};
const std::array kAilments{
    AilmentRow{Ailment::kFalla, WordsOfTheFake()},
    AilmentRow{Ailment::kMemory, "7 (Out of memory)"},
    AilmentRow{Ailment::kOther, "51 (Internal error)"},
};

FakePlatform& StartedShop(const TroubleRow& row) {
  auto& world = unit::ExportsOnFakes();
  world.GetProfile().Set(row.key, row.value);
  world.Line().SetDefault(unit::Answering(row.printer, row.fiscal));
  world.GetOperator().Queue(Answer::kYes);
  EXPECT_EQ(EP_Init(), 1);
  return world;
}

std::vector<std::string> FailuresIn(const Journal& journal) {
  auto lines = unit::TextsOf(journal, Happening::kLog);
  std::erase_if(
      lines, [](const std::string& line) { return line.find(" - Error ") == std::string::npos; });
  return lines;
}

void ExpectFailureLine(const Journal& journal, std::string_view words, std::string_view procedure) {
  const auto lines = FailuresIn(journal);
  if (procedure.empty()) {
    EXPECT_TRUE(lines.empty());
    return;
  }
  ASSERT_EQ(lines.size(), 1u);
  const auto expected = std::string("] - Error ")
                            .append(words)
                            .append(" in procedure ")
                            .append(procedure)
                            .append(
                                " of M\xF3"
                                "dulo ExportedProcedures - Linea: ");
  EXPECT_NE(lines[0].find(expected), std::string::npos) << lines[0];
}

void ExpectAWorkingLibrary(FakePlatform& world) {
  world.GetTrouble().Disarm();
  world.GetProfile().Set("MostrarComandos", "0");
  world.Line().SetDefault(unit::Answering("0000", "0600"));
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(EP_CortaPapel(), 0);
  // A close that failed is tried once more, so there may be more of them.
  EXPECT_LE(unit::TextsOf(world.GetJournal(), Happening::kOpen).size(),
            unit::TextsOf(world.GetJournal(), Happening::kClose).size());
}

const TroubleRow kTroubles[] = {
    {"the port cannot be opened", Point::kOpen},
    {"the frame cannot be written", Point::kWrite},
    {"the line cannot be looked at", Point::kCount},
    {"the line cannot be cleared", Point::kDiscard},
    {"the answer cannot be read", Point::kRead},
    {"the clock stands", Point::kTimeOfDay},
    {"the pause before a command fails", Point::kSleep, "Enviar", 1, "DelayComandos", "10"},
    {"the question before a command fails", Point::kMessage, "EP_CortaPapel", 1, "MostrarComandos",
     "1"},
    {"the box with the frame fails", Point::kMessage, "Enviar", 1, "MostrarComandos", "2"},
    {"the listing of the answer fails", Point::kMessage, "Enviar", 1, "MostrarRespuestas", "1"},
    {.sentence = "the status report fails", .point = Point::kReport, .printer = "4000"},
    {.sentence = "the warning of a nearly full memory fails",
     .point = Point::kMemoryFull,
     .procedure = "EP_ReporteZ",
     .fiscal = "0100",
     .call = EP_ReporteZ},
    {.sentence = "the port cannot be created",
     .point = Point::kCreatePort,
     .procedure = "EP_Init",
     .result = 0,
     .call = EP_Init},
    {"a log line cannot be written", Point::kLog, "", 0},
    {"the date of a log line is not to be had", Point::kDate, "", 0},
    {"the time of a log line is not to be had", Point::kTimeText, "", 0},
};

TEST(OneFailure, IsLoggedAndToldToTheHost) {
  for (const auto& row : kTroubles) {
    for (const auto& [ailment, words] : kAilments) {
      SCOPED_TRACE(std::string(row.sentence).append(": ").append(words));
      auto& world = StartedShop(row);
      world.GetTrouble().Arm(row.point, 1, false, ailment);
      EXPECT_EQ(row.call(), row.result);
      ExpectFailureLine(world.GetJournal(), words, row.procedure);
      ExpectAWorkingLibrary(world);
    }
  }
}

TEST(OneFailure, OfTheSettingsFileIsShownByTheReader) {
  auto& world = unit::StartedShop();
  world.GetTrouble().Arm(Point::kProfile, 3, false, Ailment::kFalla);
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kBox),
            std::vector<std::string>{"Error " + WordsOfTheFake() +
                                     " en Leer_Ini - M\xF3"
                                     "dulo DLLSupport - Lee_Ini - Linea: TipoComprobante"});
  ExpectAWorkingLibrary(world);
}

TEST(OneFailure, OfMemoryWhileReadingTheSettingsFailsTheStart) {
  auto& world = unit::StartedShop();
  world.GetTrouble().Arm(Point::kProfile, 3, false, Ailment::kMemory);
  EXPECT_EQ(EP_Init(), 0);
  ExpectFailureLine(world.GetJournal(), "7 (Out of memory)", "EP_Init");
  ExpectAWorkingLibrary(world);
}

// A port that does not close is a failure of the exchange like any other, and is closed once more.
TEST(OneFailure, OfClosingThePortIsToldToTheHost) {
  for (const auto& [ailment, words] : kAilments) {
    auto& world = unit::StartedShop();
    world.GetTrouble().Arm(Point::kClose, 1, false, ailment);
    EXPECT_EQ(EP_CortaPapel(), 1) << words;
    ExpectAWorkingLibrary(world);
  }
}

// Every point failing for good, under every export, with every dialog asked for.
TEST(LastingFailure, EveryExportSurvivesEveryOne) {
  for (const auto& point : kPointNames) {
    for (const auto& [ailment, words] : kAilments) {
      SCOPED_TRACE(std::string(point.name).append(": ").append(words));
      auto& world = unit::ExportsOnFakes();
      world.GetProfile().Set("MostrarComandos", "1");
      world.GetProfile().Set("MostrarRespuestas", "1");
      world.GetProfile().Set("DelayComandos", "1");
      world.Line().SetDefault(unit::Answering("4000", "0900"));
      ASSERT_EQ(EP_Init(), 1);
      world.GetTrouble().Arm(point.point, 1, true, ailment);
      for (const auto& exported : exports::Exports()) {
        if (exported.nature == exports::Nature::kBeside) continue;
        for (int i = 0; i < 10; ++i) world.GetOperator().Queue(Answer::kYes);
        const auto result = exported.call({});
        const bool tells = exported.nature == exports::Nature::kReport;
        EXPECT_TRUE(tells ? result >= 0 : result == 0 || result == 1) << exported.name;
      }
      ExpectAWorkingLibrary(world);
    }
  }
}

}  // namespace
}  // namespace kestra
