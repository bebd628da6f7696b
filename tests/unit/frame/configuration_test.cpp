// Fiscal.ini, key by key.

#include "frame/configuration.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

enum class Kind {
  kNumber,    // must be there; 32 bits
  kShort,     // must be there; 16 bits
  kOptional,  // may be left out; 32 bits
  kOptionalShort,
  kText,
};

// A key, and where its value ends up.
struct Setting {
  std::string_view key;
  Kind kind;
  std::string (*read)(const State& state);
};

#define TEXT(name, kind)                                             \
  {                                                                  \
#name, Kind::kind, [](const State& state) { return state.name; } \
  }
#define NUMBER(name, kind)                                                           \
  {                                                                                  \
#name, Kind::kind, [](const State& state) { return std::to_string(state.name); } \
  }

// In the order in which they are read.
constexpr std::array<Setting, 52> kSettings{{
    NUMBER(ImpresoraPuerto, kNumber),
    TEXT(ImpresoraConfig, kNumber),
    TEXT(TipoComprobante, kText),
    TEXT(ModeloNombre, kText),
    TEXT(TipoIVA, kText),
    NUMBER(CanDecimales, kNumber),
    NUMBER(CanMaxima, kNumber),
    NUMBER(LonObsFac, kNumber),
    NUMBER(LonLinFac, kNumber),
    NUMBER(LonPagFac, kNumber),
    NUMBER(LonLinNoF, kNumber),
    NUMBER(LonLinPag, kNumber),
    NUMBER(ErrorMostrar, kNumber),
    NUMBER(MostrarComandos, kNumber),
    NUMBER(EmiteTIC, kNumber),
    NUMBER(EmiteTIF, kNumber),
    NUMBER(EmiteFAC, kNumber),
    NUMBER(EmiteRTO, kNumber),
    NUMBER(EmitePAG, kNumber),
    NUMBER(EmiteCRE, kNumber),
    NUMBER(EmiteDEB, kNumber),
    NUMBER(EntCantidad, kShort),
    NUMBER(DecCantidad, kShort),
    NUMBER(EntPrecio, kShort),
    NUMBER(DecPrecio, kShort),
    NUMBER(IncluirPuntoPrecio, kShort),
    NUMBER(EntDesc, kShort),
    NUMBER(DecDesc, kShort),
    NUMBER(EntIVA, kShort),
    NUMBER(DecIVA, kShort),
    NUMBER(EntImpInt, kShort),
    NUMBER(DecImpInt, kShort),
    NUMBER(EntPercepcion, kShort),
    NUMBER(DecPercepcion, kShort),
    NUMBER(LonDescripcionT, kNumber),
    NUMBER(LonTextoFiscalT, kNumber),
    NUMBER(LonEncabezadoT, kNumber),
    NUMBER(LonTextoNoFiscalT, kNumber),
    NUMBER(LonDatosClienteT, kNumber),
    NUMBER(LonDescripcionF, kNumber),
    NUMBER(LonTextoFiscalF, kNumber),
    NUMBER(LonEncabezadoF, kNumber),
    NUMBER(LonTextoNoFiscalF, kNumber),
    NUMBER(LonDatosClienteF, kNumber),
    NUMBER(Transporte, kNumber),
    NUMBER(AjusteRedondeo, kNumber),
    NUMBER(QuitarCaracNoValidos, kNumber),
    NUMBER(MostrarRespuestas, kNumber),
    NUMBER(CPI, kOptionalShort),
    NUMBER(LogComandos, kOptional),
    NUMBER(UtilizaTransporte, kOptional),
    NUMBER(DelayComandos, kOptional),
}};
#undef NUMBER
#undef TEXT

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
      EXPECT_EQ(kSettings[i].read(library_.state), Sample(i, i < failing ? 2 : 1))
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
    EXPECT_EQ(kSettings[i].read(library_.state), Sample(i, 1)) << kSettings[i].key;
  }
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

TEST_F(Settings, EachKeyThatIsMissingOrTooGreatEndsTheReadingThere) {
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    const auto kind = kSettings[i].kind;
    const bool narrow = kind == Kind::kShort || kind == Kind::kOptionalShort;
    if (Required(kSettings[i])) ExpectReadingToEndAt(i, nullptr, "13 (Type mismatch)");
    if (kind == Kind::kText) continue;
    ExpectReadingToEndAt(i, narrow ? "32768" : "2147483648", "6 (Overflow)");
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
  for (const auto& setting : kSettings) {
    EXPECT_EQ(setting.read(library_.state), setting.read(State{})) << setting.key;
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
    const auto* const setting = std::find_if(kSettings.begin(), kSettings.end(),
                                             [&](auto& one) { return one.key == row.key; });
    EXPECT_EQ(setting->read(library_.state), row.field);
  }
  EXPECT_TRUE(world_.GetJournal().Events().empty());
}

}  // namespace
}  // namespace kestra
