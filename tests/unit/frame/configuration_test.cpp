// Fiscal.ini, key by key.

#include "frame/configuration.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"
#include "unit/rows.hpp"
#include "unit/settings.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

using unit::Kind;
using unit::kSettings;
using unit::Setting;

// Where each number of the file ends up.
struct NumberField {
  std::string_view key;
  std::int32_t (*read)(const State&);
};

#define FIELD(name)                                                      \
  NumberField {                                                          \
#name, [](const State& state) -> std::int32_t { return state.name; } \
  }

constexpr std::array kNumberFields{
    FIELD(ImpresoraPuerto),
    FIELD(CanDecimales),
    FIELD(CanMaxima),
    FIELD(LonObsFac),
    FIELD(LonLinFac),
    FIELD(LonPagFac),
    FIELD(LonLinNoF),
    FIELD(LonLinPag),
    FIELD(ErrorMostrar),
    FIELD(MostrarComandos),
    FIELD(EmiteTIC),
    FIELD(EmiteTIF),
    FIELD(EmiteFAC),
    FIELD(EmiteRTO),
    FIELD(EmitePAG),
    FIELD(EmiteCRE),
    FIELD(EmiteDEB),
    FIELD(EntCantidad),
    FIELD(DecCantidad),
    FIELD(EntPrecio),
    FIELD(DecPrecio),
    FIELD(IncluirPuntoPrecio),
    FIELD(EntDesc),
    FIELD(DecDesc),
    FIELD(EntIVA),
    FIELD(DecIVA),
    FIELD(EntImpInt),
    FIELD(DecImpInt),
    FIELD(EntPercepcion),
    FIELD(DecPercepcion),
    FIELD(LonDescripcionT),
    FIELD(LonTextoFiscalT),
    FIELD(LonEncabezadoT),
    FIELD(LonTextoNoFiscalT),
    FIELD(LonDatosClienteT),
    FIELD(LonDescripcionF),
    FIELD(LonTextoFiscalF),
    FIELD(LonEncabezadoF),
    FIELD(LonTextoNoFiscalF),
    FIELD(LonDatosClienteF),
    FIELD(Transporte),
    FIELD(AjusteRedondeo),
    FIELD(QuitarCaracNoValidos),
    FIELD(MostrarRespuestas),
    FIELD(CPI),
    FIELD(LogComandos),
    FIELD(UtilizaTransporte),
    FIELD(DelayComandos),
};
#undef FIELD
// All keys but the speed and the three texts.
static_assert(kNumberFields.size() == kSettings.size() - 4);

std::string FieldOf(const State& state, std::string_view key) {
  if (key == "ImpresoraConfig") return state.ImpresoraConfig;
  if (key == "TipoComprobante") return state.TipoComprobante;
  if (key == "ModeloNombre") return state.ModeloNombre;
  if (key == "TipoIVA") return state.TipoIVA;
  for (const auto& field : kNumberFields) {
    if (field.key == key) return std::to_string(field.read(state));
  }
  return "no such field";
}

bool Required(const Setting& setting) {
  return setting.kind == Kind::kNumber || setting.kind == Kind::kShort;
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

  // The keys before `failing` have the second reading's values, those from it on the first's.
  void ExpectReadUpTo(std::size_t failing) {
    for (std::size_t i = 0; i < kSettings.size(); ++i) {
      EXPECT_EQ(FieldOf(library_.state, kSettings[i].key), Sample(i, i < failing ? 2 : 1))
          << kSettings[i].key;
    }
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
    EXPECT_EQ(FieldOf(library_.state, kSettings[i].key), Sample(i, 1)) << kSettings[i].key;
  }
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

TEST_F(Settings, EachRequiredKeyThatIsMissingEndsTheReadingThere) {
  for (std::size_t missing = 0; missing < kSettings.size(); ++missing) {
    if (!Required(kSettings[missing])) continue;
    SCOPED_TRACE(kSettings[missing].key);
    WriteSamples(1);
    Lee_Ini(library_);
    WriteSamples(2);
    world_.GetProfile().Remove(kSettings[missing].key);
    world_.GetJournal().Take();
    Lee_Ini(library_);
    ExpectReadUpTo(missing);
    ExpectBox("13 (Type mismatch)", kSettings[missing].key);
  }
}

TEST_F(Settings, EachKeyThatIsTooGreatEndsTheReadingThere) {
  for (std::size_t great = 0; great < kSettings.size(); ++great) {
    const auto& setting = kSettings[great];
    if (setting.kind == Kind::kText) continue;
    const bool narrow = setting.kind == Kind::kShort || setting.kind == Kind::kOptionalShort;
    SCOPED_TRACE(setting.key);
    WriteSamples(1);
    Lee_Ini(library_);
    WriteSamples(2);
    world_.GetProfile().Set(setting.key, narrow ? "32768" : "2147483648");
    world_.GetJournal().Take();
    Lee_Ini(library_);
    ExpectReadUpTo(great);
    ExpectBox("6 (Overflow)", setting.key);
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
    if (!Required(setting) && setting.kind != Kind::kText) world_.GetProfile().Remove(setting.key);
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
  for (const auto& field : kNumberFields) EXPECT_EQ(field.read(library_.state), 0) << field.key;
}

struct ValueRow {
  const char* sentence;
  std::string_view key;
  std::string_view value;
  std::string_view field;
};

class SettingValue : public testing::TestWithParam<ValueRow> {};

TEST_P(SettingValue, FillsTheFieldSo) {
  FakePlatform world;
  Library library{world};
  unit::FillProfile(world);
  world.GetProfile().Set(GetParam().key, GetParam().value);
  Lee_Ini(library);
  EXPECT_EQ(FieldOf(library.state, GetParam().key), GetParam().field);
  EXPECT_TRUE(world.GetJournal().Events().empty());
}

constexpr std::array kValues{
    ValueRow{"a family of three letters is cut", "TipoComprobante", "TFX", "TF"},
    ValueRow{"a family of one letter is padded", "TipoComprobante", "T", "T "},
    ValueRow{"an empty family is two blanks", "TipoComprobante", "", "  "},
    ValueRow{"a family in lower case stays so", "TipoComprobante", "tf", "tf"},
    ValueRow{"a tax condition is one letter", "TipoIVA", "EX", "E"},
    ValueRow{"an empty tax condition is I", "TipoIVA", "", "I"},
    ValueRow{"a blank tax condition is I", "TipoIVA", "\"   \"", "I"},
    ValueRow{"a model keeps the blanks inside", "ModeloNombre", "\" TM  U220 \"", "TM  U220"},
    ValueRow{"an empty model is empty", "ModeloNombre", "", ""},
    ValueRow{"a speed loses its zeros and its sign", "ImpresoraConfig", "+0019200", "19200"},
    ValueRow{"a negative speed stays one", "ImpresoraConfig", "-9600", "-9600"},
    ValueRow{"characters per inch of abc are 12", "CPI", "abc", "12"},
    ValueRow{"characters per inch of 15 are 15", "CPI", "15", "15"},
    ValueRow{"characters per inch of nothing are 12", "CPI", "", "12"},
    ValueRow{"a log of yes is off", "LogComandos", "si", "0"},
    ValueRow{"a log of 2 is 2", "LogComandos", "2", "2"},
    ValueRow{"transport sheets of 1.5 are off", "UtilizaTransporte", "1.5", "0"},
    ValueRow{"a delay of nothing is none", "DelayComandos", "", "0"},
    ValueRow{"a negative delay is kept", "DelayComandos", "-1", "-1"},
    ValueRow{"the greatest length is kept", "LonDescripcionT", "2147483647", "2147483647"},
    ValueRow{"the least digit count is kept", "EntDesc", "-32768", "-32768"},
};
INSTANTIATE_TEST_SUITE_P(Rows, SettingValue, testing::ValuesIn(kValues), unit::BySentence());

}  // namespace
}  // namespace kestra
