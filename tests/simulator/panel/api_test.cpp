#include "loop.hpp"

namespace impresora {
namespace {

class PanelApi : public prueba::Desk {};

const Json* LampOf(const Json& state, const std::string& word, const std::string& key) {
  for (const Json& lamp : state.at(word).at("lamparas")) {
    if (lamp.at("clave") == key) return &lamp;
  }
  return nullptr;
}

TEST_F(PanelApi, ThePageAndItsFilesComeFromTheProgram) {
  const struct {
    const char* path;
    const char* type;
  } files[] = {{"/", "text/html; charset=utf-8"},
               {"/panel.css", "text/css; charset=utf-8"},
               {"/panel.js", "text/javascript; charset=utf-8"},
               {"/trace.js", "text/javascript; charset=utf-8"},
               {"/icono.svg", "image/svg+xml; charset=utf-8"}};
  for (const auto& file : files) {
    const auto answer = Get(file.path);
    ASSERT_TRUE(answer) << file.path;
    EXPECT_EQ(answer->status, 200) << file.path;
    EXPECT_EQ(answer->get_header_value("Content-Type"), file.type);
    EXPECT_GT(answer->body.size(), 100U);
  }
}

TEST_F(PanelApi, AnIdlePrinterTellsItsState) {
  const Json state = State();
  EXPECT_EQ(state["etapa"], "libre");
  EXPECT_EQ(state["abierto"], false);
  EXPECT_TRUE(state["documento"].is_null());
  EXPECT_TRUE(state["ultimo_documento"].is_null());
  EXPECT_EQ(state["impresora"]["palabra"], "0080");
  EXPECT_EQ(state["fiscal"]["palabra"], "0600");
  EXPECT_EQ(state["cierres_restantes"], 1825);
}

TEST_F(PanelApi, AnOpenTicketHasARunningTotal) {
  Send({"@", "C"});
  Send({"B", "Cafe", "00002000", "000001050", "2100", "M", "0001", "0000", "000000000"});
  const Json state = State();
  EXPECT_EQ(state["abierto"], true);
  EXPECT_EQ(state["documento"]["titulo"], "TIQUE");
  EXPECT_EQ(state["documento"]["total"], "21.00");
  EXPECT_EQ(state["documento"]["falta_pagar"], "21.00");
  EXPECT_TRUE(LampOf(state, "fiscal", "fiscal_documento_abierto")->at("encendida"));
}

TEST_F(PanelApi, AClosedTicketIsTheLastDocumentAndIsOnPaper) {
  PrintTicket();
  const Json state = State();
  EXPECT_EQ(state["ultimo_documento"]["numero"], 1);
  EXPECT_EQ(state["ultimo_documento"]["letra"], "B");
  EXPECT_EQ(state["ultimo_documento"]["total"], "21.00");
  EXPECT_EQ(state["jornada"]["comprobantes"], 1);
  EXPECT_EQ(state["numeracion"][0]["ultimo"], 1);
  EXPECT_EQ(state["contadores"]["comandos"], 4);
  EXPECT_NE(Get("/api/papel")->body.find("Efectivo                           21,00"),
            std::string::npos);
  EXPECT_EQ(Json::parse(Get("/api/documentos")->body).size(), 1U);
  EXPECT_NE(Get("/api/documentos/1/papel")->body.find("SIN VALIDEZ FISCAL"), std::string::npos);
}

TEST_F(PanelApi, ADocumentHasAPicture) {
  PrintTicket();
  const auto picture = Get("/api/documentos/1/papel.svg");
  EXPECT_EQ(picture->status, 200);
  EXPECT_EQ(picture->get_header_value("Content-Type"), "image/svg+xml; charset=utf-8");
  EXPECT_NE(picture->body.find("<svg"), std::string::npos);
  EXPECT_NE(picture->body.find("SIN VALIDEZ FISCAL"), std::string::npos);
  EXPECT_EQ(Get("/api/documentos/2/papel.svg")->status, 404);
}

TEST_F(PanelApi, PaperThatWasTornOffIsGoneFromTheRoll) {
  PrintTicket();
  EXPECT_EQ(Delete("/api/papel")->status, 200);
  EXPECT_EQ(Get("/api/papel")->body, "");
  EXPECT_EQ(Get("/api/documentos/1/papel")->status, 200);
}

TEST_F(PanelApi, TheTraceTakesFramesApartFromANumberOn) {
  PrintTicket();
  EXPECT_EQ(Json::parse(Get("/api/traza")->body).size(), 4U);
  const Json rows = Json::parse(Get("/api/traza?desde=2")->body);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0]["numero"], 2);
  EXPECT_EQ(rows[0]["comando"]["byte"], "B");
  EXPECT_EQ(rows[0]["comando"]["campos"][0]["valor"], "Cafe");
  EXPECT_EQ(rows[0]["respuesta"]["fiscal"]["palabra"], "1600");
  EXPECT_EQ(Get("/api/traza?desde=mucho")->status, 400);
}

TEST_F(PanelApi, HistoriesAreBoundedHoweverLongThePrinterWorks) {
  for (int i = 0; i < 60; ++i) PrintTicket();
  const Json rows = Json::parse(Get("/api/traza")->body);
  ASSERT_EQ(rows.size(), 200U);
  EXPECT_EQ(rows.back()["numero"], 240);
  const Json documents = Json::parse(Get("/api/documentos")->body);
  ASSERT_EQ(documents.size(), 50U);
  EXPECT_EQ(documents.back()["ordinal"], 60);
}

TEST_F(PanelApi, PaperTakenOutStopsThePrinterAndPutBackLetsItGoOn) {
  const auto out = Post("/api/controles", R"({"sin_papel": true})");
  EXPECT_EQ(out->status, 200);
  EXPECT_EQ(Json::parse(out->body)["impresora"]["palabra"], "C080");
  EXPECT_NE(Send({"@", "C"}).find("C084"), std::string::npos);
  EXPECT_EQ(Post("/api/controles", R"({"sin_papel": false})")->status, 200);
  EXPECT_NE(Send({"@", "C"}).find("0080"), std::string::npos);
}

TEST_F(PanelApi, TheClockIsSetByItsTime) {
  EXPECT_EQ(Post("/api/controles", R"({"reloj": "2030-01-02 03:04:05"})")->status, 200);
  EXPECT_NE(Send({"Y"}).find("300102\x1C"
                             "030405"),
            std::string::npos);
}

TEST_F(PanelApi, ALampIsForcedAndLetGo) {
  Post("/api/controles", R"({"fiscal_bateria_baja": true})");
  EXPECT_EQ(State()["fiscal"]["palabra"], "8604");
  EXPECT_TRUE(LampOf(State(), "fiscal", "fiscal_bateria_baja")->at("forzada").get<bool>());
  Post("/api/controles", R"({"fiscal_bateria_baja": null})");
  EXPECT_EQ(State()["fiscal"]["palabra"], "0600");
}

TEST_F(PanelApi, ChangesAreMadeAllOrNone) {
  const char* const wrong[] = {R"({"sin_papel": true, "nada": 1})",
                               R"({"sin_papel": true, "cierres_restantes": -5})",
                               R"({"sin_papel": true, "reloj": "mañana"})",
                               R"({"sin_papel": true, "fiscal_bateria_baja": "mucho"})",
                               R"({"sin_papel": [1]})",
                               "[]",
                               "{",
                               ""};
  for (const char* const body : wrong) {
    const auto answer = Post("/api/controles", body);
    EXPECT_EQ(answer->status, 400) << body;
    EXPECT_TRUE(Json::parse(answer->body).contains("error")) << body;
  }
  EXPECT_EQ(State()["impresora"]["palabra"], "0080");
}

TEST_F(PanelApi, AnOpenDocumentIsStillOpenAfterThePowerCameBack) {
  Send({"@", "C"});
  EXPECT_EQ(Post("/api/reiniciar", "{}")->status, 200);
  EXPECT_EQ(State()["abierto"], true);
}

TEST_F(PanelApi, ThePowerIsNotSwitchedForABodyThatAsksForMore) {
  Send({"@", "C"});
  for (const char* const body : {"[]", "{\"demora\": 5}", "null", "{", "\"{}\"", "0"}) {
    EXPECT_EQ(Post("/api/reiniciar", body)->status, 400) << body;
  }
  EXPECT_EQ(Get("/api/papel")->body.find("CORTE DE ENERG"), std::string::npos);
  for (const char* const body : {"", "{}", " { } "}) {
    EXPECT_EQ(Post("/api/reiniciar", body)->status, 200) << body;
  }
}

TEST_F(PanelApi, ADocumentThatLivedThroughAPowerCutIsWhole) {
  Send({"@", "C"});
  Post("/api/reiniciar", "{}");
  Send({"B", "Cafe", "00002000", "000001050", "2100", "M", "0001", "0000", "000000000"});
  Send({"E", "T"});
  const std::string paper = Get("/api/documentos/0/papel")->body;
  for (const char* const words : {"TIQUE", "CORTE DE ENERG", "Cafe", "T O T A L"}) {
    EXPECT_NE(paper.find(words), std::string::npos) << words;
  }
}

TEST_F(PanelApi, AnExpectationThatHoldsIsConfirmed) {
  PrintTicket();
  const auto answer = Post("/api/verificar", R"({
    "ultimo_documento": {"titulo": "TIQUE", "letra": "B", "numero": 1, "total": 21},
    "abierto": false,
    "jornada": {"ventas": "21.00"},
    "papel_contiene": ["T O T A L $ 21,00", "Cafe"],
    "papel_no_contiene": "CANCELADO"})");
  EXPECT_EQ(answer->status, 200) << answer->body;
  EXPECT_EQ(Json::parse(answer->body)["correcto"], true);
}

TEST_F(PanelApi, AnExpectationThatFailsSaysWhatDiffers) {
  PrintTicket();
  const auto answer = Post("/api/verificar", R"({
    "ultimo_documento": {"numero": 12, "total": "1210.00", "color": "rojo"},
    "abierto": true,
    "papel_contiene": "Azucar"})");
  EXPECT_EQ(answer->status, 409);
  EXPECT_EQ(Json::parse(answer->body)["diferencias"],
            Json({"ultimo_documento.numero: se esperaba 12 y es 1",
                  "ultimo_documento.total: se esperaba \"1210.00\" y es \"21.00\"",
                  "ultimo_documento.color: no existe", "abierto: se esperaba true y es false",
                  "el papel no dice \"Azucar\""}));
}

TEST_F(PanelApi, FaultRulesComeAndGo) {
  const auto wrong = Post("/api/fallas", R"({"reglas": "esto no es una regla"})");
  EXPECT_EQ(wrong->status, 400);
  EXPECT_NE(Json::parse(wrong->body)["error"].get<std::string>().find("rengl"), std::string::npos);
  EXPECT_EQ(Post("/api/fallas", R"({"reglas": 3})")->status, 400);
  EXPECT_EQ(Delete("/api/fallas/7")->status, 404);
  EXPECT_EQ(Delete("/api/fallas")->status, 200);
}

}  // namespace
}  // namespace impresora
