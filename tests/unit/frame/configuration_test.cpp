// Fiscal.ini, key by key.

#include "frame/configuration.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "fakes/fake_platform.hpp"
#include "golden/base_configuration.hpp"
#include "golden/setting_kinds.hpp"
#include "golden/state_fields.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

constexpr const auto& kSettings =
    golden::kBaseConfiguration;  // in the order in which they are read

// The value of a key where it ends up.
std::string Kept(const State& state, std::string_view key) {
  auto shown = golden::ShowField(state, key);
  std::erase(shown, '"');
  return shown;
}

// A value of the key that no other key has, and that a second reading can tell from the first.
std::string Sample(std::size_t index, int reading) {
  if (kSettings[index].key == "TipoComprobante") return reading == 1 ? "FC" : "TF";
  if (kSettings[index].key == "TipoIVA") return reading == 1 ? "N" : "E";
  return std::to_string(reading * 1000 + static_cast<int>(index));
}

class Settings : public testing::Test {
 protected:
  void WriteSamples(int reading) {
    for (std::size_t i = 0; i < kSettings.size(); ++i) {
      world_.GetProfile().Set(kSettings[i].key, Sample(i, reading));
    }
  }

  // A good reading, and a second one with a key spoilt: it ends there. The keys before have the second
  // reading's values, those from it on the first's.
  void ExpectReadingToEndAt(std::size_t failing, const char* spoilt, std::string_view failure) {
    const auto key = kSettings[failing].key;
    SCOPED_TRACE(key);
    WriteSamples(1);
    Lee_Ini(library_);
    WriteSamples(2);
    spoilt != nullptr ? world_.GetProfile().Set(key, spoilt) : world_.GetProfile().Remove(key);
    world_.GetJournal().Take();
    Lee_Ini(library_);
    for (std::size_t i = 0; i < kSettings.size(); ++i) {
      EXPECT_EQ(Kept(library_.state, kSettings[i].key), Sample(i, i < failing ? 2 : 1))
          << kSettings[i].key;
    }
    ExpectBox(failure, key);
  }

  void ExpectBox(std::string_view failure, std::string_view key) {
    const auto& events = world_.GetJournal().Events();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].kind, Happening::kBox);
    EXPECT_EQ(events[0].number, 0);
    EXPECT_EQ(events[0].detail, "");
    EXPECT_EQ(events[0].text, std::string("Error ")
                                  .append(failure)
                                  .append(" en Leer_Ini - M\xF3"
                                          "dulo DLLSupport - Lee_Ini - Linea: ")
                                  .append(key));
  }

  FakePlatform world_;
  Library library_{world_};
};

TEST_F(Settings, All52KeysFillTheirFields) {
  WriteSamples(1);
  Lee_Ini(library_);
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    EXPECT_EQ(Kept(library_.state, kSettings[i].key), Sample(i, 1)) << kSettings[i].key;
  }
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

TEST_F(Settings, EachKeyThatIsMissingOrTooGreatEndsTheReadingThere) {
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    const auto key = kSettings[i].key;
    if (golden::IsText(key)) continue;
    if (!golden::IsOptional(key)) ExpectReadingToEndAt(i, nullptr, "13 (Type mismatch)");
    ExpectReadingToEndAt(i, golden::IsShort(key) ? "32768" : "2147483648", "6 (Overflow)");
  }
}

TEST_F(Settings, MissingPriceDigitsLeaveTheDecimalsAtZeroOnFirstUse) {
  WriteSamples(1);
  world_.GetProfile().Remove("EntPrecio");
  Lee_Ini(library_);
  EXPECT_EQ(library_.state.DecCantidad, 1022);
  EXPECT_EQ(library_.state.EntPrecio, 0);
  EXPECT_EQ(library_.state.DecPrecio, 0);
  EXPECT_EQ(library_.state.CPI, 0);
}

TEST_F(Settings, TheFirst48KeysAreEnough) {
  WriteSamples(1);
  for (const auto& setting : kSettings) {
    if (golden::IsOptional(setting.key)) world_.GetProfile().Remove(setting.key);
  }
  Lee_Ini(library_);
  EXPECT_EQ(library_.state.CPI, 12);
  EXPECT_EQ(library_.state.LogComandos, 0);
  EXPECT_EQ(library_.state.UtilizaTransporte, 0);
  EXPECT_EQ(library_.state.DelayComandos, 0);
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

TEST_F(Settings, WithoutAFileTheFirstKeyFailsAndNothingChanges) {
  Lee_Ini(library_);
  ExpectBox("13 (Type mismatch)", "ImpresoraPuerto");
  for (const auto& setting : kSettings) {
    EXPECT_EQ(Kept(library_.state, setting.key), Kept(State{}, setting.key)) << setting.key;
  }
  EXPECT_EQ(library_.state.ImpresoraPuerto + library_.state.DelayComandos, 0);
}

constexpr struct {
  const char* sentence;
  std::string_view key;
  std::string_view value;
  std::string_view field;
} kValues[] = {
    {"a family of three letters is cut", "TipoComprobante", "TFX", "TF"},
    {"a family of one letter is padded", "TipoComprobante", "T", "T "},
    {"an empty family is two blanks", "TipoComprobante", "", "  "},
    {"a family in lower case stays so", "TipoComprobante", "tf", "tf"},
    {"a tax condition is one letter", "TipoIVA", "EX", "E"},
    {"an empty tax condition is I", "TipoIVA", "", "I"},
    {"a blank tax condition is I", "TipoIVA", "\"   \"", "I"},
    {"a model keeps the blanks inside", "ModeloNombre", "\" TM  U220 \"", "TM  U220"},
    {"an empty model is empty", "ModeloNombre", "", ""},
    {"a speed loses its zeros and its sign", "ImpresoraConfig", "+0019200", "19200"},
    {"a negative speed stays one", "ImpresoraConfig", "-9600", "-9600"},
    {"characters per inch of abc are 12", "CPI", "abc", "12"},
    {"characters per inch of 15 are 15", "CPI", "15", "15"},
    {"characters per inch of nothing are 12", "CPI", "", "12"},
    {"a log of yes is off", "LogComandos", "si", "0"},
    {"a log of 2 is 2", "LogComandos", "2", "2"},
    {"transport sheets of 1.5 are off", "UtilizaTransporte", "1.5", "0"},
    {"a delay of nothing is none", "DelayComandos", "", "0"},
    {"a negative delay is kept", "DelayComandos", "-1", "-1"},
    {"the greatest length is kept", "LonDescripcionT", "2147483647", "2147483647"},
    {"the least digit count is kept", "EntDesc", "-32768", "-32768"},
};

TEST_F(Settings, FillTheirFieldsSo) {
  for (const auto& row : kValues) {
    SCOPED_TRACE(row.sentence);
    unit::FillProfile(world_);
    world_.GetProfile().Set(row.key, row.value);
    Lee_Ini(library_);
    EXPECT_EQ(Kept(library_.state, row.key), row.field);
  }
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

}  // namespace
}  // namespace kestra
