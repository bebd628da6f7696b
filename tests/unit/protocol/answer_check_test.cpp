// An answer judged: what the operator sees and what the command is told.

#include "protocol/answer_check.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "device/operations.hpp"
#include "fakes/failure_number.hpp"
#include "fakes/fake_platform.hpp"
#include "protocol/answer.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

template <typename... Fields>
std::string AnswerWith(const Fields&... fields) {
  std::string answer = "\x02 K";
  (answer.append("\x1C").append(fields), ...);
  return answer.append("\x03").append("0000");
}

struct Shop {
  FakePlatform world{};
  Library library{world};

  Shop(std::string_view printer = "0000", std::string_view fiscal = "0600") {
    library.state.RespuestaActual = AnswerWith(printer, fiscal);
  }
  std::size_t Count(Happening kind) { return unit::TextsOf(world.GetJournal(), kind).size(); }
};

constexpr struct {
  const char* sentence;
  std::string_view printer;
  std::string_view fiscal;
  std::int32_t error_mostrar;
  std::size_t reports;
  bool accepted;
} kChecks[] = {
    {"a quiet answer", "0000", "0600", 1, 0, true},
    {"out of paper is reported though accepted", "4000", "0600", 1, 1, true},
    {"out of paper is reported whatever the setting", "4000", "0600", 0, 1, true},
    {"its neighbour bit is not reported", "2000", "0600", 1, 0, true},
    {"a refused command is reported", "0000", "0610", 1, 1, false},
    {"a refused command is not reported when not asked for", "0000", "0610", 0, 0, false},
    {"only a 1 asks for it", "0000", "0610", 2, 0, false},
    {"a refusal without paper is reported twice", "4000", "0610", 1, 2, false},
    {"a printer offline is reported", "0008", "0600", 1, 1, false},
    {"memory almost full is accepted", "0000", "0100", 1, 0, true},
    {"the summary bits are accepted", "8000", "8600", 1, 0, true},
    {"an open document is accepted", "0000", "1600", 1, 0, true},
};

TEST(AnswerCheck, ReportsAndJudges) {
  for (const auto& row : kChecks) {
    SCOPED_TRACE(row.sentence);
    Shop shop(row.printer, row.fiscal);
    shop.library.state.ErrorMostrar = row.error_mostrar;
    EXPECT_EQ(ListarRespuestas(shop.library), row.accepted);
    EXPECT_EQ(shop.Count(Happening::kReport), row.reports);
    EXPECT_EQ(shop.Count(Happening::kBox), 0u);
    EXPECT_EQ(shop.library.state.Reintentar, 0);
  }
}

TEST(AnswerListing, IsShownOnlyForOne) {
  for (const std::int32_t setting : {0, 1, 2, -1}) {
    Shop shop;
    shop.library.state.MostrarRespuestas = setting;
    EXPECT_TRUE(ListarRespuestas(shop.library));
    EXPECT_EQ(shop.Count(Happening::kBox), setting == 1 ? 1u : 0u);
  }
}

TEST(AnswerListing, ShowsWordsAndDataBeforeAnyReport) {
  Shop shop;
  shop.library.state.MostrarRespuestas = 1;
  shop.library.state.RespuestaActual = AnswerWith("4000", "0600", "261121", "103000");
  EXPECT_TRUE(ListarRespuestas(shop.library));
  const auto& events = shop.world.GetJournal().Events();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].kind, Happening::kBox);
  EXPECT_EQ(events[0].number, 0);
  EXPECT_EQ(events[0].detail, "");
  EXPECT_EQ(events[0].text, ListingText({"4000", "0600", "261121", "103000", "", "", "", "", "", "",
                                         "", "", "", "", ""}));
  EXPECT_EQ(events[1].kind, Happening::kReport);
  EXPECT_EQ(shop.library.state.Respuesta[0], "261121");
  EXPECT_EQ(shop.library.state.Respuesta[1], "103000");
}

TEST(AnswerReport, ItsRetryButtonSetsTheFlag) {
  Shop shop("4000");
  shop.world.GetOperator().Queue(Answer::kRetry);
  EXPECT_TRUE(ListarRespuestas(shop.library));
  EXPECT_EQ(shop.library.state.Reintentar, -1);
}

TEST(AnswerSplit, KeepsAWholeCopyAndForgetsTheAnswerBefore) {
  Shop shop;
  shop.library.state.RespuestaActual = AnswerWith("0000", "0600", "old");
  SepararRespuesta(shop.library);
  EXPECT_EQ(shop.library.state.Respuesta[0], "old");
  shop.library.state.RespuestaActual = AnswerWith("0080", "0610");
  SepararRespuesta(shop.library);
  EXPECT_EQ(shop.library.state.RespuestaCompleta, AnswerWith("0080", "0610"));
  EXPECT_EQ(shop.library.state.EstadoImpresora, "0080");
  EXPECT_EQ(shop.library.state.EstadoFiscal, "0610");
  EXPECT_EQ(shop.library.state.Respuesta[0], "");
}

TEST(AnswerDecoding, ABadPrinterWordLeavesTheOtherFlagsClear) {
  Shop shop;
  shop.library.state.BitImpresora.fill(-1);
  shop.library.state.BitFiscal.fill(-1);
  shop.library.state.EstadoImpresora = "00G1";
  shop.library.state.EstadoFiscal = "FFFF";
  EXPECT_EQ(FailureNumber([&] { DecodificarEstados(shop.library); }), 13);
  EXPECT_EQ(shop.library.state.BitImpresora, Flags{-1});
  EXPECT_EQ(shop.library.state.BitFiscal, Flags{});
}

// The printer asked for its status.

const struct {
  const char* sentence;
  const char* printer;
  const char* fiscal;
  std::int32_t error_mostrar;
  std::vector<std::string> boxes;
  bool fine;
} kQueries[] = {
    {"nothing set is fine", "0000", "0600", 1, {}, true},
    {"almost full alone is fine", "0000", "0100", 1, {}, true},
    {"almost full with the summary bit is not",
     "0000",
     "8100",
     1,
     {"Memoria Fiscal casi llena"},
     false},
    {"an open document is told twice",
     "0000",
     "9000",
     1,
     {"Documento fiscal abierto",
      "Documento Fiscal abierto o Documento No Fiscal abierto que se emite por el rollo de "
      "papel"},
     false},
    {"the summary bit of the printer alone tells nothing", "8000", "0600", 1, {}, false},
    {"nothing is told when not asked for", "0000", "9000", 0, {}, false},
    {"only a 1 asks for it", "0000", "9000", 2, {}, false},
    {"a failed exchange ends it without messages", "0000", "8880", 0, {}, false},
};

TEST(StatusQuery, TellsTheOperator) {
  for (const auto& row : kQueries) {
    SCOPED_TRACE(row.sentence);
    FakePlatform world;
    Library library{world};
    library.state.Puerto = world.CreatePort(
        {.CommPort = 1, .Settings = "9600,N,8,1", .Handshaking = 0, .InputMode = 0, .device = {}});
    library.state.ErrorMostrar = row.error_mostrar;
    world.Line().SetDefault(unit::Answering(row.printer, row.fiscal));
    EXPECT_EQ(ObtenerEstado(library), row.fine);
    EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kBox), row.boxes);
    ASSERT_EQ(world.Line().Frames().size(), 1u);
    EXPECT_EQ(world.Line().Frames()[0].substr(2, 4),
              "*\x1C"
              "A\x03");
  }
}

}  // namespace
}  // namespace kestra
