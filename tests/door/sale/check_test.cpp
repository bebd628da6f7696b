// What is wrong with a document is told all at once, with its place.
#include "sale/check.hpp"

#include <gtest/gtest.h>

#include "door/sale/shop.hpp"

namespace puerta {
namespace {

Words Wrong(const Json& body, const Json& facts, std::string_view operation = "comprobante") {
  return Said(Check(operation, body, facts));
}

TEST(Documents, GoodOnesHaveNothingWrong) {
  EXPECT_EQ(Wrong(Ticket(), FactsOfFamily("TQ")), Words());
  EXPECT_EQ(Wrong(InvoiceA(), FactsOfFamily("TF")), Words());
  EXPECT_EQ(Wrong(InvoiceA(), FactsOfFamily("FC")), Words());
  EXPECT_EQ(Wrong(InvoiceA(), Json()), Words()) << "nothing known of the printer";
}

TEST(Documents, EveryErrorIsTold) {
  const auto body = Json::parse(R"({"tipo": "factura", "letra": "A", "vendedor": 7,
      "cliente": {"condicion_iva": "responsable_inscripto", "documento": {"tipo": "CUIT", "numero": "30123456789"}},
      "renglones": [{"descripcion": "Una descripción larguísima de algo", "cantidad": 2, "precio": "1.005", "iva": "20"}],
      "pagos": [{"descripcion": "Efectivo", "monto": "-1"}]})");
  EXPECT_EQ(
      Wrong(body, FactsOfFamily("TF", "Transliterar=1\n")),
      (Words{"/cliente/documento/numero el dígito verificador no corresponde",
             "/cliente/nombre un comprobante A lleva el nombre del cliente",
             "/renglones/0/descripcion tiene 34 caracteres y la impresora toma 26",
             "/renglones/0/cantidad se espera un número decimal entre comillas, como \"1234.50\"",
             "/renglones/0/precio tiene 3 decimales y la impresora toma 2",
             "/renglones/0/iva no es una tasa de IVA: 0, 2.5, 5, 10.5, 21 o 27",
             "/pagos/0/monto no puede ser negativo", "/vendedor no se conoce esta clave"}));
}

struct Row {
  std::vector<Change> changes;
  std::string wrong;  // empty: nothing is
};

void Expect(const Json& body, const Json& facts, const std::vector<Row>& rows) {
  for (const auto& row : rows) {
    Json changed = body;
    for (const auto& change : row.changes) changed = With(changed, {change});
    EXPECT_EQ(Wrong(changed, facts), row.wrong.empty() ? Words() : Words{row.wrong}) << changed;
  }
}

TEST(Documents, LettersFollowShopAndCustomer) {
  const std::string by = "por la condición ante el IVA del cliente y la del comercio, va la letra ";
  Expect(
      InvoiceA(), FactsOfFamily("TF"),
      {{{{"/letra", nullptr}}, ""},
       {{{"/letra", "B"}}, "/letra " + by + "A"},
       {{{"/cliente/condicion_iva", "exento"}}, "/letra " + by + "B"},
       {{{"/cliente/condicion_iva", "monotributo"}}, ""},
       {{{"/cliente/condicion_iva", "monotributo"}, {"/letra", nullptr}}, "/letra falta"},
       {{{"/cliente/condicion_iva", "monotributo"}, {"/letra", "C"}}, "/letra " + by + "A o B"},
       {{{"/cliente/condicion_iva", "amigo"}},
        "/cliente/condicion_iva se espera una de responsable_inscripto, responsable_no_inscripto, "
        "no_responsable, exento, monotributo, consumidor_final, no_categorizado"}});
}

TEST(Documents, FamiliesHaveTheirKinds) {
  const std::string none = "/tipo una impresora de la familia ";
  const auto customer = Json{{"condicion_iva", "consumidor_final"}};
  for (const auto& [family, kind, good] : {std::tuple{"TQ", "tique", true},
                                           {"TQ", "factura", false},
                                           {"TF", "factura", true},
                                           {"TF", "nota_credito", true},
                                           {"TF", "nota_debito", false},
                                           {"TF", "tique", false},
                                           {"TF", "remito", false},
                                           {"FC", "factura", true},
                                           {"FC", "nota_debito", true},
                                           {"FC", "nota_credito", true},
                                           {"FC", "remito", true},
                                           {"FC", "otro", true},
                                           {"FC", "tique", false}}) {
    const auto body = With(Ticket(), {{"/tipo", kind}, {"/cliente", customer}});
    const Words wrong{none + family + " no lo emite"};
    EXPECT_EQ(Wrong(body, FactsOfFamily(family)), good ? Words() : wrong) << family << " " << kind;
  }
}

TEST(Documents, CustomersShowWhoTheyAre) {
  Expect(InvoiceA(), FactsOfFamily("TF"),
         {{{{"/cliente/documento", nullptr}},
           "/cliente/documento esa condición ante el IVA pide el CUIT"},
          {{{"/cliente/documento/tipo", "CIUT"}},
           "/cliente/documento/tipo se espera uno de CUIT, CUIL, DNI, LE, LC, CI, PASAPO"},
          {{{"/cliente/nombre2", "y Cia"}},
           "/cliente/nombre2 este comprobante tiene un solo renglón para el nombre"},
          {{{"/cliente/domicilio", {"a", "b", "c", "d"}}},
           "/cliente/domicilio tiene 4 textos y la impresora toma 3"},
          {{{"/cliente/domicilio/0", "calle\nnumero"}},
           "/cliente/domicilio/0 tiene un carácter de control"},
          {{{"/copias", 2}}, "/copias este comprobante sale una sola vez"}});
  Expect(Ticket(), FactsOfFamily("TQ"),
         {{{{"/cliente", {{"condicion_iva", "consumidor_final"}}}}, ""},
          {{{"/cliente", {{"nombre", "Juan"}}}},
           "/cliente un tique es a consumidor final, sin sus datos"},
          {{{"/cliente", "Juan"}}, "/cliente se espera un objeto"}});
}

TEST(Documents, IdentitiesHaveTheirShapes) {
  const auto identity = [](const char* kind, const char* number) {
    return With(InvoiceA(), {{"/letra", "B"},
                             {"/cliente/condicion_iva", "consumidor_final"},
                             {"/cliente/documento", {{"tipo", kind}, {"numero", number}}}});
  };
  for (const auto& [kind, number, good] : {std::tuple{"DNI", "20123456", true},
                                           {"DNI", "123", false},
                                           {"PASAPO", "AB123456", true},
                                           {"DNI", "2012345A", false},
                                           {"CUIT", "3012345678", false},
                                           {"LE", "1234567", true}}) {
    const Words wrong{std::string("/cliente/documento/numero no es un número de ") + kind};
    EXPECT_EQ(Wrong(identity(kind, number), FactsOfFamily("TF")), good ? Words() : wrong) << number;
  }
}

TEST(Documents, DigitsAreThePrinters) {
  Expect(
      Ticket(), FactsOfFamily("TQ"),
      {{{{"/renglones/0/precio", "12345678"}},
        "/renglones/0/precio tiene 8 cifras enteras y la impresora toma 7"},
       {{{"/renglones/0/cantidad", "0.1234"}},
        "/renglones/0/cantidad tiene 4 decimales y la impresora toma 3"},
       {{{"/renglones/0/cantidad", "0"}}, "/renglones/0/cantidad no puede ser cero"},
       {{{"/renglones/0/precio", "0"}}, ""},
       {{{"/renglones/0/precio", 150.5}},
        "/renglones/0/precio se espera un número decimal entre comillas, como \"1234.50\""},
       {{{"/renglones/0/impuestos_internos", "200"}},
        "/renglones/0/impuestos_internos son más que el precio"},
       {{{"/renglones/0/extra", {"a", "b", "c"}}}, ""},
       {{{"/percepciones", Json::array({{{"tipo", "iva"}, {"descripcion", "P"}, {"monto", "1"}}})}},
        "/percepciones un tique no lleva percepciones"}});
}

TEST(Documents, LettersThatDoNotReachThePaperAreTold) {
  const auto coffee = With(Ticket(), {{"/renglones/0/descripcion", "Café"}});
  const auto smile = With(Ticket(), {{"/renglones/0/descripcion", "Cafe 😀"}});
  const auto halves = With(Ticket(), {{"/renglones/0/descripcion", "½½½½½½½½½"}});
  const auto respelt = FactsOfFamily("TQ", "Transliterar=1\n");
  EXPECT_EQ(Wrong(coffee, FactsOfFamily("TQ")),
            Words{"/renglones/0/descripcion «é» no está entre los caracteres de la impresora"});
  EXPECT_EQ(Wrong(coffee, respelt), Words());
  EXPECT_EQ(Wrong(With(Ticket(), {{"/renglones/0/descripcion", "Caña"}}), FactsOfFamily("TQ")),
            Words());
  EXPECT_EQ(Wrong(smile, respelt),
            Words{"/renglones/0/descripcion «😀» no está entre los caracteres de la impresora"});
  EXPECT_EQ(Wrong(halves, respelt),
            Words{"/renglones/0/descripcion tiene 27 caracteres y la impresora toma 26"});
}

TEST(Documents, SumsAreHeldAgainstEachOther) {
  const auto correction = [](const char* amount) {
    return Json::array({{{"descripcion", "Por cliente"}, {"monto", amount}}});
  };
  Expect(Ticket(), FactsOfFamily("TQ"),
         {{{{"/total", "300.00"}}, ""},
          {{{"/total", "300.01"}}, "/total la suma da 300.00"},
          {{{"/descuentos", correction("300.01")}},
           "/descuentos/0/monto es más que lo vendido: 300.00"},
          {{{"/descuentos", correction("50")}, {"/total", "250"}}, ""},
          {{{"/recargos", correction("50")}, {"/total", "350"}}, ""},
          {{{"/pagos", correction("299.99")}}, "/pagos suman 299.99 y el total es 300.00"},
          {{{"/pagos", correction("1000")}}, ""},
          {{{"/renglones/0/cantidad", "99999"}, {"/renglones/0/precio", "9999999"}},
           "/renglones/0 el importe pasa lo que la impresora admite"},
          {{{"/renglones/0", {{"texto", "Gracias"}}}}, "/renglones no hay ningún artículo"},
          {{{"/renglones", Json::array()}}, "/renglones está vacía"},
          {{{"/renglones/0/cantidad", "-2"}},
           "/renglones/0/cantidad se devuelve más de lo que se vendió en este comprobante"}});
  const auto back = With(Ticket(), {{"/renglones/1", Ticket()["/renglones/0"_json_pointer]},
                                    {"/renglones/1/cantidad", "-1"},
                                    {"/total", "150.00"}});
  EXPECT_EQ(Wrong(back, FactsOfFamily("TQ")), Words());
}

TEST(Documents, NetPricesLeaveThePrinterItsRounding) {
  // 3 * 4200 + 9500 less 500, IVA at two rates, and a perception.
  Expect(InvoiceA(), FactsOfFamily("TF"),
         {{{{"/total", "25471.57"}}, ""},
          {{{"/total", "25471.54"}}, ""},
          {{{"/total", "25472.00"}}, "/total la suma da 25471.57"}});
}

TEST(OtherOperations, AreCheckedLikewise) {
  const struct {
    const char* operation;
    const char* body;
    Words wrong;
  } rows[] = {
      {"informe", R"({"tipo": "x"})", {}},
      {"informe", R"({"tipo": "z"})", {}},
      {"informe", R"({"tipo": "y"})", {"/tipo se espera x, z, fechas o numeros"}},
      {"informe", R"({})", {"/tipo falta"}},
      {"informe", R"({"tipo": "x", "desde": 1})", {"/desde no se conoce esta clave"}},
      {"informe", R"({"tipo": "fechas", "desde": "2026-11-01", "hasta": "2026-11-30"})", {}},
      {"informe",
       R"({"tipo": "fechas", "desde": "2026-11-31", "hasta": "22/11/2026"})",
       {"/desde se espera una fecha como 2026-11-22",
        "/hasta se espera una fecha como 2026-11-22"}},
      {"informe",
       R"({"tipo": "fechas", "desde": "2026-12-01", "hasta": "2026-11-30"})",
       {"/hasta es antes que desde"}},
      {"informe", R"({"tipo": "numeros", "desde": 1, "hasta": 5})", {}},
      {"informe", R"({"tipo": "numeros", "desde": 6, "hasta": 5})", {"/hasta es menor que desde"}},
      {"informe",
       R"({"tipo": "numeros", "desde": "1", "hasta": 100000})",
       {"/desde se espera un número de 1 a 99999", "/hasta se espera un número de 1 a 99999"}},
      {"no_fiscal", R"({"renglones": ["uno", ""]})", {}},
      {"no_fiscal", R"({"renglones": []})", {"/renglones está vacía"}},
      {"no_fiscal", R"({"renglones": [7]})", {"/renglones/0 se espera un texto"}},
      {"no_fiscal", R"({})", {"/renglones falta"}},
      {"cajon", R"({})", {}},
      {"cajon", R"({"cajon": 3})", {"/cajon se espera un número de 1 a 2"}},
      {"reloj", R"({"fecha_hora": "2026-11-22T18:30:00"})", {}},
      {"reloj",
       R"({"fecha_hora": "2026-11-22 18:30"})",
       {"/fecha_hora se espera una fecha y hora como 2026-11-22T18:30:00"}},
      {"reloj",
       R"({"fecha_hora": "2026-11-22T24:00:00"})",
       {"/fecha_hora se espera una fecha y hora como 2026-11-22T18:30:00"}},
      {"encabezados", R"({"lineas": [{"linea": 1, "texto": "Bazar", "doble_ancho": true}]})", {}},
      {"encabezados",
       R"({"lineas": [{"linea": 0}]})",
       {"/lineas/0/linea se espera un número de 1 a 30", "/lineas/0/texto falta"}},
      {"cancelar", R"({})", {}},
      {"estado", R"({})", {}},
      {"brindis", R"({})", {" no se conoce esta operación"}},
      {"comprobante", R"([])", {" se espera un objeto", "/tipo falta", "/renglones falta"}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Wrong(Json::parse(row.body), FactsOfFamily("TQ"), row.operation), row.wrong)
        << row.body;
}

}  // namespace
}  // namespace puerta
