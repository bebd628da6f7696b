// What a request becomes: calls of the library, in their order.
#include "sale/plan.hpp"

#include <gtest/gtest.h>

#include "door/sale/shop.hpp"
#include "sale/ini.hpp"

namespace puerta {
namespace {

std::string Written(const Call& call) {
  std::string text(call.name);
  for (const auto& one : call.texts) text += "|" + one;
  for (const auto& amount : call.amounts) text += "|" + DecimalText(amount);
  for (const auto number : call.numbers) text += "|" + std::to_string(number);
  return call.line == 0 ? text : text + " @" + std::to_string(call.line);
}

Words CallsFor(std::string_view operation, const Json& body, const std::string& family) {
  const auto plan = PlanOf(operation, body, ReadFacts(FactsOfFamily(family)));
  EXPECT_EQ(Said(plan.errors), Words());
  Words written;
  written.reserve(plan.calls.size());
  for (const auto& call : plan.calls) written.push_back(Written(call));
  return written;
}

TEST(Plans, OfATicket) {
  const auto body =
      With(Ticket(), {{"/renglones/1", {{"texto", "Gracias"}}},
                      {"/recargos", Json::array({{{"descripcion", "Envio"}, {"monto", "10.5"}}})},
                      {"/pagos", Json::array({{{"descripcion", "Efectivo"}, {"monto", "500"}}})}});
  EXPECT_EQ(
      CallsFor("comprobante", body, "TQ"),
      (Words{"EP_AbrirComprobanteFiscal|FC|B|||||F||||||1", "EP_ImprimirItem|Cafe||||2|150|21|0 @1",
             "EP_ImprimirTextoFiscal|Gracias @2", "EP_RecargoGeneral|Envio|10.5",
             "EP_ImprimirPago|Efectivo|500", "EP_CerrarComprobanteFiscal|FC|B"}));
}

TEST(Plans, OfAnInvoice) {
  EXPECT_EQ(
      CallsFor("comprobante", InvoiceA(), "TF"),
      (Words{
          "EP_AbrirComprobanteFiscal|FC|A|Bazar Belgrano S.R.L.||CUIT|30123456781|I|Belgrano 123|"
          "Rosario||||1",
          "EP_ImprimirItem|Resma A4||||3|4200|21|0 @1",
          "EP_ImprimirItem|Libro|Tapa dura|||1|9500|10.5|0 @2", "EP_DescuentoGeneral|Descuento|500",
          "EP_EspecificarPercepcionGlobal|IIBB|O|310.5|0", "EP_ImprimirPago|Cuenta corriente|26000",
          "EP_CerrarComprobanteFiscal|FC|A"}));
}

TEST(Plans, OfADeliveryNoteOnAForm) {
  const auto body = With(Ticket(), {{"/tipo", "remito"}, {"/copias", 2}});
  EXPECT_EQ(CallsFor("comprobante", body, "FC"),
            (Words{"EP_AbrirComprobanteNoFiscalHomologado|RT|R|||||F||||||2",
                   "EP_ImprimirItem|Cafe||||2|150|21|0 @1",
                   "EP_CerrarComprobanteNoFiscalHomologado|RT|R"}));
}

TEST(Plans, KnowTheCounterAndTheTotal) {
  const struct {
    const char* family;
    const char* kind;
    std::optional<std::size_t> counter;
  } rows[] = {
      {"TQ", "tique", 1},        {"TF", "factura", 3},           {"TF", "nota_credito", 8},
      {"FC", "nota_debito", 10}, {"FC", "remito", std::nullopt}, {"FC", "otro", std::nullopt}};
  for (const auto& row : rows) {
    const auto plan = PlanOf("comprobante", With(Ticket(), {{"/tipo", row.kind}}),
                             ReadFacts(FactsOfFamily(row.family)));
    EXPECT_EQ(plan.counter, row.counter) << row.kind;
    EXPECT_EQ(plan.told.contains("total"),
              row.kind != std::string("remito") && row.kind != std::string("otro"));
  }
}

TEST(Plans, OfTheRest) {
  const struct {
    const char* operation;
    const char* body;
    Words calls;
  } rows[] = {
      {"informe", R"({"tipo": "x"})", {"EP_ReporteX"}},
      {"informe", R"({"tipo": "z"})", {"EP_ReporteZ"}},
      {"informe",
       R"({"tipo": "fechas", "desde": "2026-11-01", "hasta": "2026-11-30"})",
       {"EP_ReporteZporFechas|261101|261130"}},
      {"informe", R"({"tipo": "numeros", "desde": 1, "hasta": 5})", {"EP_ReporteZporNumeros|1|5"}},
      {"no_fiscal",
       R"({"renglones": ["uno"]})",
       {"EP_AbrirComprobanteNoFiscal", "EP_ImprimirTextoNoFiscal|uno @1",
        "EP_CerrarComprobanteNoFiscal"}},
      {"cajon", R"({})", {"EP_AbrirCajonDeDinero|1"}},
      {"reloj", R"({"fecha_hora": "2026-11-22T18:30:00"})", {"EP_CambiarFechaHora|261122|183000"}},
      {"encabezados",
       R"({"lineas": [{"linea": 3, "texto": "Bazar", "doble_ancho": true}]})",
       {"EP_SetEncabezado|Bazar|3|1 @1"}},
      {"numeracion", R"({})", {}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(CallsFor(row.operation, Json::parse(row.body), "TF"), row.calls) << row.body;
  EXPECT_TRUE(ChangesThePrinter("cajon"));
  EXPECT_FALSE(ChangesThePrinter("estado"));
  EXPECT_FALSE(ChangesThePrinter("brindis"));
}

TEST(Settings, AreReadAsTheLibraryReadsThem) {
  const std::string ini =
      "\xEF\xBB\xBF; de la caja\r\n[otra]\r\nDiario=no\r\n[EPSON_fiscal]\r\n diario = "
      "\"diario.txt\" \r\n"
      ";Diario=comentario\r\nDiario=segundo\r\nModoSeguro=1 "
      "\r\nEntPrecio=siete\r\n[mas]\r\nTipoComprobante=TQ\r\n";
  EXPECT_EQ(IniValue(ini, "Diario"), "diario.txt");
  EXPECT_EQ(IniValue(ini, "TipoComprobante"), std::nullopt);
  EXPECT_EQ(IniNumber(ini, "ModoSeguro", 0), 1);
  EXPECT_EQ(IniNumber(ini, "EntPrecio", 4), 4);
  EXPECT_EQ(IniValue("", "Diario"), std::nullopt);
}

TEST(Settings, BecomeFactsAndFactsAreReadAgain) {
  const auto facts = ReadFacts(FactsOfFamily("FC", "Transliterar=1\n"));
  EXPECT_EQ(facts.family, "FC");
  EXPECT_EQ(facts.description, 30);
  EXPECT_EQ(facts.quantity.decimals, 3);
  EXPECT_TRUE(facts.respells);
  EXPECT_TRUE(ReadFacts(Json()).family.empty());
}

}  // namespace
}  // namespace puerta
