// How texts are handed over is the host's choice: by a call, or by a key of Fiscal.ini.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "kestra/kestra.h"
#include "unit/world.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kAsk = -1;

void StartWith(FakePlatform& world, std::string_view mode) {
  world.GetProfile().Set("TextosTerminados", mode);
  EXPECT_EQ(EP_Init(), 1);
}

TEST(TextMode, IsAskedAndChosen) {
  unit::ExportsOnFakes();
  struct Row {
    const char* sentence;
    std::int32_t asked;
    std::int32_t before;
  };
  constexpr Row rows[] = {
      {"as ever at first", kAsk, 0},
      {"with a zero", 1, 0},
      {"asking changes nothing", kAsk, 1},
      {"in UTF-8", 2, 1},
      {"a mode too many changes nothing", 3, 2},
      {"nor does one too few", -2, 2},
      {"nor the greatest", std::numeric_limits<std::int32_t>::max(), 2},
      {"nor the least", std::numeric_limits<std::int32_t>::min(), 2},
      {"and back", 0, 2},
      {"as ever", kAsk, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(Kestra_Textos(row.asked), row.before) << row.sentence;
}

TEST(TextMode, IsThatOfTheKeyAsFarAsItIsOne) {
  auto& world = unit::ExportsOnFakes();
  struct Row {
    std::string_view value;
    std::int32_t mode;
  };
  constexpr Row rows[] = {{"1", 1}, {"2", 2}, {"3", 0}, {"-1", 0}, {"si", 0}, {"", 0}, {"0", 0}};
  for (const auto& row : rows) {
    StartWith(world, row.value);
    EXPECT_EQ(Kestra_Textos(kAsk), row.mode) << row.value;
  }
}

TEST(TextMode, TheCallWinsOverTheKeyWheneverItIsMade) {
  auto& world = unit::ExportsOnFakes();
  Kestra_Textos(2);
  StartWith(world, "1");
  EXPECT_EQ(Kestra_Textos(kAsk), 2);
  EP_Kill();
  EXPECT_EQ(Kestra_Textos(kAsk), 2);
  StartWith(world, "1");
  EXPECT_EQ(Kestra_Textos(0), 2);
  StartWith(world, "1");
  EXPECT_EQ(Kestra_Textos(kAsk), 0);
}

TEST(TextMode, LeavesTheReportOfTheLastCallAlone) {
  auto& world = unit::ExportsOnFakes();
  StartWith(world, "0");
  EXPECT_EQ(EP_CortaPapel(), 0);
  Kestra_Textos(1);
  EXPECT_EQ(Kestra_Desenlace(), KESTRA_DESENLACE_HECHO);
}

struct Host {
  std::vector<std::string> texts;
  std::int32_t within = 0;
};

std::int32_t KESTRA_CALL OnMessage(void* context, const char* text, const char* /*title*/,
                                   std::int32_t /*style*/) {
  auto& host = *static_cast<Host*>(context);
  host.texts.emplace_back(text);
  host.within = Kestra_Textos(0);
  return 6;
}

TEST(TextMode, StaysWhileACallIsUnderWay) {
  auto& world = unit::ExportsOnFakes();
  world.GetProfile().Set("MostrarComandos", "1");
  StartWith(world, "2");
  Host host;
  const KestraOperador record{sizeof record, &host, OnMessage, nullptr, nullptr};
  Kestra_DefinirOperador(&record);
  EXPECT_EQ(EP_ImprimirTextoFiscal("Ca\u00F1a \u20AC"), 0);
  Kestra_DefinirOperador(nullptr);
  EXPECT_EQ(host.within, -1);
  EXPECT_EQ(Kestra_Textos(kAsk), 2);
  ASSERT_FALSE(host.texts.empty());
  EXPECT_EQ(host.texts.front(),
            "EP_ImprimirTextoFiscal(Ca\u00F1a \u20AC" + std::string(20, ' ') + ")");
}

// Every operation's texts, from a host that ends them with a zero and has nothing else to give.
TEST(TerminatedTexts, AreTheSameFramesAsPaddedOnes) {
  const auto wire = [](bool padded) {
    auto& world = unit::ExportsOnFakes();
    StartWith(world, padded ? "0" : "1");
    std::vector<std::string> kept;
    kept.reserve(100);
    const auto text = [&](std::string_view words, std::size_t bytes) {
      kept.emplace_back(words);
      if (padded) kept.back().resize(bytes, ' ');
      return kept.back().c_str();
    };
    EP_AbrirComprobanteFiscal(text("FC", 2), text("A", 1), text("Libreria", 40), text("", 40),
                              text("CUIT", 6), text("30", 11), text("I", 1), text("Sur", 40),
                              text("", 40), text("Timbre", 40), text("", 40), text("", 40), 1);
    EP_ImprimirItem(text("Resma", 50), 1, 10, 21, 0, text("a", 22), text("", 22), text("b", 22));
    EP_AnularItem(text("Resma", 50), 1, 10, 21, 0, text("", 22), text("", 22), text("", 22));
    EP_ImprimirTextoFiscal(text("Oferta", 26));
    EP_DescuentoGeneral(text("Socio", 80), 1);
    EP_RecargoGeneral(text("Tarjeta", 80), 1);
    EP_EspecificarPercepcionGlobal(text("IIBB", 20), 1, 2, text("O", 1));
    EP_ImprimirPago(text("Efectivo", 80), 10);
    EP_CerrarComprobanteFiscal(text("FC", 2), text("A", 1), nullptr);
    EP_ImprimirTextoNoFiscal(text("Retira Ana", 120));
    EP_CerrarComprobanteNoFiscalHomologado(text("NC", 2), text("A", 1));
    EP_ReporteZporFechas(text("260101", 6), text("2601", 6), 0);
    EP_CambiarFechaHora(text("260101", 6), text("", 6));
    EP_SetEncabezado(text("Kiosco", 120), 1, 1);
    return unit::Wire(world.GetJournal());
  };
  EXPECT_EQ(wire(false), wire(true));
}

}  // namespace
}  // namespace kestra
