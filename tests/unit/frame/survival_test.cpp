// Whatever a host passes and whenever it calls, it lives on and so does the library.

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "golden/base_configuration.hpp"
#include "kestra/kestra.h"
#include "state/library.hpp"
#include "unit/frame/passed.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

using exports::Export;
using exports::Exports;
using exports::Nature;
using unit::Passed;

constexpr std::array<std::string_view, 4> kFamilies{"TQ", "TF", "FC", "XX"};

bool Operates(const Export& exported) {
  return exported.nature == Nature::kOperation;
}

// The library of a shop of this family, started.
FakePlatform& StartedShop(std::string_view family) {
  return unit::StartedShop("TipoComprobante", family);
}

struct Outcome {
  std::vector<std::int32_t> results;
  std::string wire;
};

Outcome CallAll(FakePlatform& world, const Passed& passed) {
  Outcome outcome;
  for (const auto& exported : Exports()) {
    // A null is no text at all to the one that looks for the end of its text.
    if (!Operates(exported) || exported.name == "EP_ImprimirTextoFiscalInterna") continue;
    outcome.results.push_back(unit::Call(exported, passed));
  }
  outcome.wire = unit::Wire(world.GetJournal());
  return outcome;
}

TEST(Survival, NullTextsReadAsBlanksInEveryOperation) {
  const std::string blanks(200, ' ');
  std::array<char, 200> buffer{};
  for (const auto family : kFamilies) {
    SCOPED_TRACE(family);
    const auto with_nulls = CallAll(StartedShop(family), {});
    const auto with_blanks =
        CallAll(StartedShop(family), {.text = blanks.c_str(), .buffer = buffer.data()});
    EXPECT_EQ(with_nulls.results, with_blanks.results);
    EXPECT_EQ(with_nulls.wire, with_blanks.wire);
  }
}

TEST(Survival, ANullForAnEndedTextIsTheEmptyText) {
  auto& world = StartedShop("TQ");
  EXPECT_EQ(EP_ImprimirTextoFiscalInterna(nullptr), 0);
  EXPECT_EQ(EP_ImprimirTextoFiscalInterna(""), 0);
  const auto& frames = world.Line().Frames();
  ASSERT_EQ(frames.size(), 2u);
  EXPECT_EQ(frames[0].substr(2, 3), "A\x1C\x03");
  EXPECT_EQ(frames[1].substr(2, 3), "A\x1C\x03");
}

TEST(Survival, BeforeTheStartAndAfterTheEndEveryOperationFailsAndNothingIsSent) {
  for (const auto& exported : Exports()) {
    if (!Operates(exported)) continue;
    SCOPED_TRACE(exported.name);
    auto& fresh = unit::ExportsOnFakes();
    EXPECT_EQ(exported.call({}), exported.failed);
    EXPECT_EQ(unit::Wire(fresh.GetJournal()), "");
    EXPECT_TRUE(unit::TextsOf(fresh.GetJournal(), Happening::kLog).empty());
    auto& ended = StartedShop("TQ");
    EP_Kill();
    EXPECT_EQ(exported.call({}), exported.failed);
    EXPECT_EQ(unit::Wire(ended.GetJournal()), "");
  }
}

TEST(Survival, BeforeTheStartTheOperatorIsTold) {
  auto& world = unit::ExportsOnFakes();
  EXPECT_EQ(EP_CortaPapel(), 1);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kBox),
            std::vector<std::string>{"Error en el comando Enviar"});
}

TEST(Survival, AfterTheEndTheLogNamesTheMissingPort) {
  auto& world = StartedShop("TQ");
  EP_Kill();
  EXPECT_EQ(EP_CortaPapel(), 1);
  const auto lines = unit::TextsOf(world.GetJournal(), Happening::kLog);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], "[21/11/2026-10:30:00] - Comando : EP_CortaPapel()\r\n");
  EXPECT_EQ(
      lines[1].find("[21/11/2026-10:30:00] - Error 91 (Object variable or With block variable "
                    "not set) in procedure Enviar of M\xF3"
                    "dulo ExportedProcedures - Linea: "),
      0u);
}

TEST(Survival, StartAndEndAsOftenAsTheHostLikes) {
  auto& world = StartedShop("TQ");
  EP_Kill();
  EP_Kill();
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(EP_CortaPapel(), 0);
  EP_Kill();
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kPortCreated).size(), 3u);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kPortReleased).size(), 3u);
}

TEST(Survival, FixedResultsTouchNothing) {
  for (const auto& exported : Exports()) {
    if (exported.nature != Nature::kFixed) continue;
    auto& world = StartedShop("TQ");
    world.GetJournal().Take();
    EXPECT_EQ(unit::Call(exported, {.count = -1}), 0) << exported.name;
    EXPECT_TRUE(world.GetJournal().Events().empty()) << exported.name;
  }
}

TEST(Survival, TheLastErrorIsZeroBeforeAnyOperationAndAfterAFailedOne) {
  unit::ExportsOnFakes();
  EXPECT_EQ(EP_Chequear_Error(), 0);
  EXPECT_EQ(EP_CortaPapel(), 1);
  EXPECT_EQ(EP_Chequear_Error(), 0);
}

TEST(Survival, TheLibraryMayGoOnceItHoldsNoPort) {
  unit::ExportsOnFakes();
  EXPECT_EQ(DllCanUnloadNow(), 0);
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(DllCanUnloadNow(), 1);
  EP_Kill();
  EXPECT_EQ(DllCanUnloadNow(), 0);
}

// Settings and arguments that no sane shop has.

struct AbsurdRow {
  const char* sentence;
  std::string_view keys;  // those that begin so
  std::string_view more_keys;
  std::string_view value;
  double amount;
  std::int32_t count;
};

void Spoil(FakePlatform& world, const AbsurdRow& row) {
  for (const auto& [key, value] : golden::kBaseConfiguration) {
    const auto begins = [&, key = key](std::string_view prefix) {
      return !prefix.empty() && key.substr(0, prefix.size()) == prefix;
    };
    if (begins(row.keys) || begins(row.more_keys)) world.GetProfile().Set(key, row.value);
  }
}

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr AbsurdRow kAbsurd[] = {
    {"lengths of minus one", "Lon", "", "-1", 1, 1},
    {"lengths of nothing", "Lon", "", "0", 1, 1},
    {"lengths of 32767", "Lon", "", "32767", 1, 1},
    {"lengths beyond 16 bits", "Lon", "", "32768", 1, 1},
    {"the greatest lengths", "Lon", "", "2147483647", 1, 1},
    {"the least lengths", "Lon", "", "-2147483648", 1, 1},
    {"no digits at all", "Ent", "Dec", "0", 1, 1},
    {"thirty thousand digits", "Ent", "Dec", "30000", 1, 1},
    {"thirty thousand whole digits", "Ent", "", "30000", 1, 1},
    {"thirty thousand decimals", "Dec", "", "30000", 1, 1},
    {"minus five digits", "Ent", "Dec", "-5", 1, 1},
    {"minus five decimals", "Dec", "", "-5", 1, 1},
    {"the greatest digit counts", "Ent", "Dec", "32767", 1, 1},
    {"the least digit counts", "Ent", "Dec", "-32768", 1, 1},
    {"every switch set to the greatest number", "Emite", "Mostrar", "2147483647", 1, 1},
    {"every switch set to minus one", "Emite", "Mostrar", "-1", 1, 1},
    {"a delay of a minute", "DelayComandos", "", "60000", 1, 1},
    {"a negative delay", "DelayComandos", "", "-2147483648", 1, 1},
    {"the least characters per inch", "CPI", "", "-32768", 1, 1},
    {"amounts that are no numbers", "", "", "", std::numeric_limits<double>::quiet_NaN(), 1},
    {"infinite amounts", "", "", "", kInfinity, 1},
    {"negative infinite amounts", "", "", "", -kInfinity, 1},
    {"amounts of 1e308", "", "", "", 1e308, 1},
    {"amounts of minus 1e308", "", "", "", -1e308, 1},
    {"amounts of 1e308 in thirty thousand digits", "Ent", "", "30000", 1e308, 1},
    {"the smallest amounts", "", "", "", std::numeric_limits<double>::denorm_min(), 1},
    {"the greatest counts", "", "", "", 1, kMost},
    {"the least counts", "", "", "", 1, kLeast},
};

TEST(Absurd, EveryOperationOfEveryFamilyEndsAndTheNextOneWorks) {
  const std::string text(200, 'x');
  std::array<char, 200> buffer{};
  for (const auto& row : kAbsurd) {
    SCOPED_TRACE(row.sentence);
    for (const auto family : kFamilies) {
      SCOPED_TRACE(family);
      auto& world = unit::ExportsOnFakes();
      world.GetProfile().Set("TipoComprobante", family);
      Spoil(world, row);
      ASSERT_EQ(EP_Init(), 1);
      for (const auto& exported : Exports()) {
        if (!Operates(exported)) continue;
        const auto result =
            unit::Call(exported, {text.c_str(), buffer.data(), row.amount, row.count});
        EXPECT_TRUE(result == 0 || result == 1) << exported.name << " gave " << result;
      }
      EXPECT_EQ(EP_CortaPapel(), 0);
    }
  }
}

TEST(Survival, AnAmountThatDoesNotFitIsShownAndGoesOutEmpty) {
  for (const double amount : {kInfinity, 1e308, std::numeric_limits<double>::quiet_NaN()}) {
    auto& world = StartedShop("TQ");
    const std::string text(80, ' ');
    EXPECT_EQ(EP_ImprimirPago(text.c_str(), amount), 0);
    EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kBox),
              std::vector<std::string>{"Error al convertir"});
    ASSERT_EQ(world.Line().Frames().size(), 1u);
    EXPECT_EQ(world.Line().Frames()[0].substr(2, 7), "D\x1C\x7F\x1C\x1CT\x03");
  }
}

// An adjustment says success to the host even where its total is none; the log says more.
TEST(Survival, ATotalThatIsNoNumberIsLogged) {
  auto& world = unit::StartedShop("AjusteRedondeo", "1");
  EXPECT_EQ(EP_AjusteRedondeo(kInfinity), 0);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kLog),
            std::vector<std::string>{"[21/11/2026-10:30:00] - Error 6 (Overflow) in procedure "
                                     "EP_AjusteRedondeo of M\xF3"
                                     "dulo ExportedProcedures - Linea: \r\n"});
  EXPECT_EQ(unit::Wire(world.GetJournal()), "");
}

TEST(Survival, APrintersTotalThatIsNoNumberIsLogged) {
  auto& world = unit::StartedShop("AjusteRedondeo", "1");
  EXPECT_EQ(EP_AjusteRedondeo(100), 0);
  const auto lines = unit::TextsOf(world.GetJournal(), Happening::kLog);
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back(),
            "[21/11/2026-10:30:00] - Error 13 (Type mismatch) in procedure EP_AjusteRedondeo of "
            "M\xF3"
            "dulo ExportedProcedures - Linea: \r\n");
}

TEST(LastError, IsWhatTheStateHolds) {
  StartedShop("TQ");
  Instance().state.UltimoError = 5;
  EXPECT_EQ(EP_Chequear_Error(), 5);
}

TEST(LastError, IsResetByAnOpeningEvenOneThatIsRefusedOrDeclined) {
  for (const auto* kind : {"FC", "XX"}) {
    for (const auto* ask : {"0", "1"}) {
      unit::StartedShop("MostrarComandos", ask);
      Instance().state.UltimoError = 5;
      EP_AbrirComprobanteFiscal(kind, "B", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, 1);
      EXPECT_EQ(EP_Chequear_Error(), 0) << kind << ask;
    }
  }
}

}  // namespace
}  // namespace kestra
