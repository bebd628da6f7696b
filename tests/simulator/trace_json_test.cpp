#include <gtest/gtest.h>

#include "booth.hpp"
#include "trace/exchange_json.hpp"
#include "trace/exchange_text.hpp"

namespace impresora {
namespace {

using Json = nlohmann::json;
using prueba::Watched;

struct Objects : Observer {
  void Exchanged(const Exchange& exchange) override {
    lines.push_back(TraceJson(exchange));
    parsed.push_back(Json::parse(lines.back()));
  }
  std::vector<std::string> lines;
  std::vector<Json> parsed;
};

TEST(TraceJson, AStrictPrinterSaysWhy) {
  Settings settings;
  settings.strict = true;
  Watched<Objects> booth(settings);
  booth.Send(40, {"@", "C"});
  booth.Send(41, {"A", "Caf\xE9"});
  ASSERT_EQ(booth.watcher.parsed.size(), 2U);
  EXPECT_FALSE(booth.watcher.parsed[0]["respuesta"].contains("motivo"));
  EXPECT_EQ(booth.watcher.parsed[1]["respuesta"]["motivo"],
            "carácter fuera de la tabla de la impresora");
}

TEST(TraceJson, AnExchangeIsOneObjectOnOneLine) {
  Watched<Objects> booth;
  const Objects& objects = booth.watcher;
  const std::string answer = booth.Send(40, {"^", "2"});
  ASSERT_EQ(objects.parsed.size(), 1U);
  EXPECT_EQ(objects.lines[0].find('\n'), std::string::npos);
  EXPECT_EQ(objects.parsed[0], Json::parse(R"({
    "numero": 1, "hora": "2026-11-21T10:30:00", "demora_us": 0, "resultado": "ejecutado",
    "secuencia": 40,
    "comando": {"byte": "^", "nombre": "Leer encabezado",
                "campos": [{"nombre": "línea", "valor": "2"}]},
    "respuesta": {
      "impresora": {"palabra": "0080", "error": false, "condiciones": ["buffer vacío"]},
      "fiscal": {"palabra": "0600", "error": false, "condiciones": ["certificada", "fiscalizada"]},
      "datos": [{"nombre": "línea", "valor": "2"}, {"nombre": "texto", "valor": ""}]},
    "fallas": [],
    "bytes": {"comando": "02 28 5E 1C 32 03 30 30 44 39", "respuesta": ")" +
                                           HexBytes(answer) + R"("}})"));
}

TEST(TraceJson, KeysComeInTheOrderThatPeopleReadThem) {
  const std::string line = TraceJson(Exchange{});
  std::size_t last = 0;
  for (const char* key :
       {"\"numero\"", "\"hora\"", "\"demora_us\"", "\"resultado\"", "\"secuencia\"", "\"comando\"",
        "\"respuesta\"", "\"fallas\"", "\"bytes\""}) {
    const std::size_t at = line.find(key);
    ASSERT_NE(at, std::string::npos) << key;
    EXPECT_GE(at, last) << key;
    last = at;
  }
}

TEST(TraceJson, ADamagedFrameHasNeitherCommandNorAnswer) {
  Watched<Objects> booth;
  const Objects& objects = booth.watcher;
  std::string damaged = Frame(43, "K");
  damaged.back() ^= 1;
  prueba::Ask(booth.session, damaged, booth.now);
  ASSERT_EQ(objects.parsed.size(), 1U);
  const Json& object = objects.parsed[0];
  EXPECT_EQ(object["resultado"], "danado");
  EXPECT_TRUE(object["secuencia"].is_null() && object["comando"].is_null() &&
              object["respuesta"].is_null());
  EXPECT_EQ(object["bytes"]["comando"], HexBytes(damaged));
  EXPECT_EQ(object["bytes"]["respuesta"], "15");
}

TEST(TraceJson, AnyBytesMakeAnObject) {
  Watched<Objects> booth;
  const Objects& objects = booth.watcher;
  booth.Send(40, {"]", "1", "\xED\x81\xF4\"\\"});
  ASSERT_EQ(objects.parsed.size(), 1U);
  EXPECT_EQ(objects.parsed[0]["comando"]["campos"][1]["valor"], "í ô\"\\");
}

}  // namespace
}  // namespace impresora
