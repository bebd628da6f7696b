#include <gtest/gtest.h>

#include "tool/log/written_log.hpp"

namespace kestra::tool {
namespace {

using Lines = std::vector<std::string>;

struct Story {
  std::string_view name;
  std::string log;
  Lines told;
};

std::vector<Story> Stories() {
  return {
      {"a cut of the paper",
       WrittenLog()
           .Call("EP_CortaPapel()")
           .Sent(' ', "K")
           .At("16/11/2026-02:25:17")
           .Answered(' ', "K|0080|0600")
           .Text(),
       {"EP_CortaPapel K hecho 2 s"}},
      {"what the printer refuses, and why",
       WrittenLog().Exchange("ImprimirPago()", "d|Efectivo|1|T", "d|0080|8610").Text(),
       {"EP_ImprimirPago d rechazado: campo de datos inválido 0 s"}},
      {"paper out is no refusal",
       WrittenLog().Exchange("EP_CortaPapel()", "K", "K|C080|0600").Text(),
       {"EP_CortaPapel K hecho: sin papel 0 s"}},
      {"silence, and the operator who tries again",
       WrittenLog()
           .Call("EP_CortaPapel()")
           .Sent(' ', "K")
           .At("16/11/2026-02:25:20")
           .Heard("")
           .Sent('!', "K")
           .Answered('!', "K|0080|0600")
           .Text(),
       {"EP_CortaPapel K sin respuesta 5 s", "EP_CortaPapel 2 K hecho 0 s"}},
      {"busy for a while, and a sum that nobody looks at",
       WrittenLog()
           .Call("EP_CortaPapel()")
           .Sent(' ', "K")
           .Heard("\x12\x12" + Framed(' ', "K|0080|0600") + "0000")
           .Text(),
       {"EP_CortaPapel K hecho 0 s | 2 avisos de ocupado | la suma de la respuesta está mal"}},
      {"an answer to somebody else's frame",
       WrittenLog().Call("EP_CortaPapel()").Sent(' ', "K").Answered('!', "K|0080|0600").Text(),
       {"EP_CortaPapel K contestó otra cosa 0 s | 1 respuesta a otra trama"}},
      {"an answer that cannot be read",
       WrittenLog().Call("EP_CortaPapel()").Sent(' ', "K").Answered(' ', "K|ZZ80|0600").Text(),
       {"EP_CortaPapel K respuesta dañada 0 s"}},
      {"the port could not be opened",
       WrittenLog()
           .Call("EP_CortaPapel()")
           .Line("Error 8015 (No existe) in procedure Enviar of M\xF3"
                 "dulo ExportedProcedures - Linea: abrir")
           .Text(),
       {"EP_CortaPapel error: 8015 (No existe) en Enviar, abrir"}},
      {"the answer broke the driver",
       WrittenLog()
           .Exchange("EP_CortaPapel()", "K", "K|0080|0600")
           .Line("Error 13 (Type mismatch) in procedure Enviar of M\xF3"
                 "dulo ExportedProcedures - Linea: juzgar")
           .Text(),
       {"EP_CortaPapel K error: 13 (Type mismatch) en Enviar, juzgar 0 s"}},
      {"start-up failed",
       WrittenLog()
           .Line("Error 8002 (Malo) in procedure EP_Init of M\xF3"
                 "dulo ExportedProcedures - Linea: ")
           .Text(),
       {"error: 8002 (Malo) en EP_Init"}},
      {"nothing is sent for a debit note on a roll",
       WrittenLog()
           .Call("EP_AbrirComprobanteFiscal(TF/ND)")
           .Call("EP_CortaPapel()")
           .Sent(' ', "K")
           .Text(),
       {"EP_AbrirComprobanteFiscal(TF/ND) no se mandó", "EP_CortaPapel K sin respuesta anotada"}},
      {"the drawer and the model have no line of their own",
       WrittenLog()
           .Exchange("EP_CortaPapel()", "K", "K|0080|0600")
           .Sent('*', "{")
           .Answered('*', "{|0080|0600")
           .Sent('*', "{")
           .Answered('*', "{|0080|0600")
           .Exchange("ObtenerEstado()", "*|A", "*|0080|0600")
           .Sent('*', "*|P")
           .Answered('*', "*|0080|0600")
           .Text(),
       {"EP_CortaPapel K hecho 0 s", "EP_AbrirCajonDeDinero { hecho 0 s",
        "EP_AbrirCajonDeDinero { hecho 0 s", "EP_ObtenerEstado * hecho 0 s",
        "EP_ValoresModelo * hecho 0 s"}},
      {"extra lines go before the item of a ticket",
       WrittenLog()
           .Call("EP_ImprimirItem")
           .Exchange("EP_ImprimirTextoFiscal", "A|Extra uno", "A|0080|0600")
           .Exchange("EP_ImprimirTextoFiscal", "A|Extra dos", "A|0080|0600")
           .Sent('*', "B|Pan|00001000|000000100|2100|M|0001|0000|000000000")
           .Answered('*', "B|0080|0600")
           .Text(),
       {"EP_ImprimirTextoFiscal A hecho 0 s", "EP_ImprimirTextoFiscal A hecho 0 s",
        "EP_ImprimirItem B hecho 0 s"}},
      {"one line announces all rounds of the rounding",
       WrittenLog()
           .Exchange("AjusteRedondeo", "c|N|\x7F", "c|0080|0600")
           .Sent('+', "d|Ajuste por Redondeo|3|D")
           .Answered('+', "d|0080|0600")
           .Text(),
       {"EP_AjusteRedondeo c hecho 0 s", "EP_AjusteRedondeo d hecho 0 s"}},
      {"what the safe mode tells",
       WrittenLog()
           .Line("Pendiente : EP_ImprimirItem('Pan')")
           .Sent('*', "C|N|\x7F")
           .Answered('*', "C|0080|0600")
           .Line("Libros : no se hizo")
           .Call("EP_CortaPapel()")
           .Sent(' ', "K")
           .Line("Descartado : xx")
           .Answered(' ', "K|0080|0600")
           .Line("Diario : Error 61 (Disk full)")
           .Line("Una palabra nueva")
           .Text(),
       {"nota | pendiente: EP_ImprimirItem('Pan')", "C hecho 0 s | libros: no se hizo",
        "EP_CortaPapel K hecho 0 s | descartado: xx | diario: Error 61 (Disk full) | Una palabra "
        "nueva"}},
      {"an answer whose frame was lost",
       WrittenLog().Answered('*', "K|0080|0600").Text(),
       {"contestó otra cosa | 1 respuesta a otra trama"}},
      {"a frame with a line end in its text is one frame",
       WrittenLog()
           .Exchange("EP_ImprimirTextoFiscalInterna", "A|uno\r\ndos\n\ntres", "A|0080|8610")
           .Text(),
       {"EP_ImprimirTextoFiscalInterna A rechazado: campo de datos inválido 0 s"}},
      {"a cut of power in the middle of a line, zeros behind it, and the till that starts again",
       WrittenLog()
           .Call("EP_CortaPapel()")
           .Raw("[16/11/2026-02:25:15] - Outp")
           .Raw(std::string(300, '\0'))
           .Raw("\r\n")
           .Exchange("EP_CortaPapel()", "K", "K|0080|0600")
           .Raw("[16/11/2026-02:2")
           .Exchange("EP_CortaPapel()", "K", "K|0080|0600")
           .Text(),
       {"EP_CortaPapel no se mandó | Outp" + std::string(300, ' '), "EP_CortaPapel K hecho 0 s",
        "línea dañada | [16/11/2026-02:2", "EP_CortaPapel K hecho 0 s"}},
      {"lines that ran into each other",
       "[16/11/2026-02:25:15] - Comando : EP_CortaPapel()[16/11/2026-02:25:16] - Output : " +
           Framed(' ', "K") + "[16/11/2026-02:25:17] - Respuesta : \r\n",
       {"EP_CortaPapel K sin respuesta 1 s"}},
      {"without carriage returns, and without an end",
       "[16/11/2026-02:25:15] - Comando : EP_CortaPapel()\n[16/11/2026-02:25:16] - Output : " +
           Framed(' ', "K"),
       {"EP_CortaPapel K sin respuesta anotada"}},
      {"a frame cut short",
       WrittenLog().Call("EP_CortaPapel()").Line("Output : \x02 K").Line("Respuesta : ").Text(),
       {"EP_CortaPapel sin respuesta 0 s | trama que no se entiende:   K"}},
      {"a command of another printer",
       WrittenLog().Exchange("EP_Otra", "?|uno", "?|0080|8608|dos").Text(),
       {"EP_Otra ? rechazado: comando no reconocido 0 s"}},
      {"no log at all", "hola\nque tal\n", {"línea dañada | hola", "línea dañada | que tal"}},
      {"nothing", "", {}},
      {"empty lines and an old editor's end", "\r\n\r\n\x1A", {}},
  };
}

TEST(Log, TellsWhatBecameOfEachFrame) {
  for (const Story& story : Stories())
    EXPECT_EQ(Told(ReadLog(story.log).views), story.told) << story.name;
}

TEST(Log, HoweverItsBytesArrive) {
  for (const Story& story : Stories())
    EXPECT_EQ(Told(ReadLog(story.log, {}, 1).views), story.told) << story.name;
}

std::string Fields(const std::vector<FieldView>& fields) {
  std::string text;
  for (const FieldView& field : fields)
    text += (text.empty() ? "" : ", ") + field.name + " " + field.words;
  return text;
}

TEST(Log, FieldsAreNamedAndNumbersHaveTheirPoint) {
  const auto views =
      ReadLog(WrittenLog()
                  .Exchange("EP_ImprimirItem",
                            "B|Caf\xE9|00001500|000123450|2100|M|0001|0000|-00000100",
                            "B|0080|0600")
                  .Exchange("EP_CambiarFechaHora", "X|261116|022515", "X|0080|0600|261116|022515")
                  .Exchange("EP_Subtotal", "C|N|\x7F",
                            "C|0080|0600|00002|00002500|000000415125|-00000000100")
                  .Exchange("EP_Precio", "B|Pan|1|0001234.50||M|x", "B|0080|0600|otro")
                  .Text())
          .views;
  EXPECT_EQ(
      Fields(views[0].fields),
      "descripción Café, cantidad 1,500, precio 1.234,50, IVA 21,00, calificador M, bultos 0001, "
      "tasa de ajuste 0000, impuestos internos -00000100");
  EXPECT_EQ(Fields(views[1].fields), "fecha 16/11/26, hora 02:25:15");
  EXPECT_EQ(Fields(views[1].answer->data), "fecha 16/11/26, hora 02:25:15");
  EXPECT_EQ(Fields(views[2].answer->data),
            "renglones 00002, unidades 2,500, total 4.151,25, IVA -00000000100");
  EXPECT_EQ(Fields(views[3].fields),
            "descripción Pan, cantidad 1, precio 1.234,50, IVA , calificador M, bultos x");
  EXPECT_EQ(Fields(views[3].answer->data), "dato 1 otro");
}

TEST(Log, ThePrinterSaysHowManyDigitsItsNumbersHave) {
  const auto views =
      ReadLog(WrittenLog()
                  .Exchange("EP_AutodetectarModelo()", "*|P", "*|0080|0600|TQ|84|94|22|x|92")
                  .Exchange("EP_ImprimirItem", "B|Pan|000000015000|0000000123450", "B|0080|0600")
                  .Text())
          .views;
  EXPECT_EQ(Fields(views[1].fields), "descripción Pan, cantidad 1,5000, precio 12,3450");
}

std::string TwoDays() {
  WrittenLog log;
  log.Exchange("EP_AbrirComprobanteFiscal(TF/FC)", "`|T|C|A|1|F|12|I|I|Ana Paz", "`|0080|3600");
  log.Exchange("EP_ImprimirItem", "b|Pan", "b|0080|8610");
  log.Exchange("EP_CerrarComprobanteFiscal", "e|T|A|\x7F", "e|0080|0600|00000012");
  log.At("17/11/2026-09:00:00").Exchange("EP_AbrirComprobanteFiscal(TQ/FC)", "@|C", "@|0080|1600");
  log.Exchange("EP_Cancelar()", "d|\x7F|\x7F|C", "d|0080|0600");
  log.Exchange("EP_AbrirComprobanteNoFiscal()", "H", "H|0080|1600");
  log.Exchange("EP_CerrarComprobanteNoFiscal()", "J|T", "J|0080|0600");
  log.Exchange("EP_AbrirComprobanteFiscal(TF/FC)", "`|T|C|B|1|F|12|I|F|Luis", "`|0080|3600");
  log.Exchange("EP_CerrarComprobanteFiscal", "e|T|B|\x7F", "e|0080|0600|00000012");
  log.Exchange("EP_AbrirComprobanteFiscal(TF/FC)", "`|?|C|B|1|F|12|I|F|Luis", "`|0080|3600");
  return log.Text();
}

TEST(Log, DocumentsHaveNames) {
  Lines names;
  for (const View& view : ReadLog(TwoDays()).views) names.push_back(NameOf(view.document));
  EXPECT_EQ(names, (Lines{"TIQUE FACTURA A 00000012", "TIQUE FACTURA A 00000012",
                          "TIQUE FACTURA A 00000012", "TIQUE, cancelado", "TIQUE, cancelado",
                          "NO FISCAL", "NO FISCAL", "TIQUE FACTURA B 00000012",
                          "TIQUE FACTURA B 00000012", "COMPROBANTE B"}));
}

struct FilterRow {
  std::string_view what;
  Filter filter;
  std::size_t shown;
};

TEST(Log, FiltersByFailureDayAndDocument) {
  const FilterRow rows[] = {
      {"everything", {}, 10},
      {"failures", {.failures = true}, 1},
      {"a day", {.day = Day{2026, 11, 17}}, 7},
      {"a number", {.number = "12"}, 5},
      {"a letter and a number", {.letter = "B", .number = "12"}, 2},
      {"a failure of that day", {.failures = true, .day = Day{2026, 11, 17}}, 0},
      {"a number that is not there", {.number = "13"}, 0},
  };
  for (const FilterRow& row : rows) {
    const auto sheet = ReadLog(TwoDays(), row.filter);
    EXPECT_EQ(sheet.views.size(), row.shown) << row.what;
    EXPECT_EQ(sheet.totals.frames, 10U) << row.what;
    EXPECT_EQ(sheet.totals.failures, 1U) << row.what;
    EXPECT_EQ(sheet.totals.documents, 5U) << row.what;
  }
}

struct DocumentRow {
  std::string_view text;
  bool good;
  std::string_view letter;
  std::string_view number;
};

TEST(Log, ADocumentIsAskedForAsPeopleWriteIt) {
  constexpr DocumentRow kRows[] = {
      {"12", true, "", "12"},      {"B-12", true, "B", "12"}, {"b 00000012", true, "B", "12"},
      {"A12", true, "A", "12"},    {"", false, "", ""},       {"B", false, "B", ""},
      {"12-B", false, "", "12-B"}, {"000", false, "", ""},    {"?12", false, "", ""},
  };
  for (const DocumentRow& row : kRows) {
    Filter filter;
    EXPECT_EQ(ReadDocument(row.text, filter), row.good) << row.text;
    EXPECT_EQ(filter.letter, row.letter) << row.text;
    EXPECT_EQ(filter.number, row.number) << row.text;
  }
}

TEST(Log, AFrameIsShownAsSoonAsTheLogRests) {
  KeptSheet sheet;
  LogReport report({}, {}, Viewer({}, Mask(false)), sheet);
  report.Feed(WrittenLog().Call("EP_CortaPapel()").Sent(' ', "K").Text());
  report.Rest();
  EXPECT_EQ(Told(sheet.views), Lines{"EP_CortaPapel K sin respuesta anotada"});
}

struct SheetRow {
  std::string_view needle;
  bool there;
};

std::string Page(bool masked) {
  std::ostringstream out;
  const auto sheet = MakeHtmlSheet(out, "<fiscal>.log", masked);
  LogReport report({}, {}, Viewer({}, Mask(masked)), *sheet);
  report.Feed(TwoDays());
  report.End();
  return out.str();
}

TEST(Log, APageForSupportHidesTheCustomer) {
  constexpr SheetRow kRows[] = {{"&lt;fiscal&gt;.log", true},
                                {"<fiscal>", false},
                                {"xxx xxx", true},
                                {"Ana", false},
                                {"Luis", false},
                                {"rechazado: campo de datos", true},
                                {"<tr class=\"bad\">", true},
                                {"17/11/2026", true},
                                {"</html>", true},
                                {"10 tramas, 1 falla, 5 comprobantes", true}};
  const std::string page = Page(true);
  for (const SheetRow& row : kRows)
    EXPECT_EQ(page.find(row.needle) != std::string::npos, row.there) << row.needle;
  EXPECT_NE(Page(false).find("Ana Paz"), std::string::npos);
}

TEST(Log, TheTableFitsItsColumns) {
  std::ostringstream out;
  const auto sheet = MakeTextSheet(out, 60, false);
  LogReport report({}, {}, Viewer({}, Mask(false)), *sheet);
  report.Feed(WrittenLog()
                  .Exchange("EP_AbrirComprobanteFiscal(TF/FC)",
                            "`|T|C|A|1|F|12|I|I|Librer\xED"
                            "a Mu\xF1oz| |CUIT|30000000007|N",
                            "`|0080|3600")
                  .Text());
  report.End();
  EXPECT_EQ(out.str(),
            "16/11/2026\n"
            "-- TIQUE FACTURA A\n"
            "02:25:15  EP_AbrirComprobanteFiscal(TF/FC)              hecho · 0 s\n"
            "          ` Abrir factura: tipo T · papel C · letra A\n"
            "            copias 1 · formulario F\n"
            "            caracteres por pulgada 12 · IVA del emisor I\n"
            "            IVA del cliente I · nombre «Librería Muñoz»\n"
            "            tipo de documento CUIT · documento 30000000007\n"
            "            bien de uso N · 1 vacío\n"
            "          -> impresora 0080 buffer vacío\n"
            "            fiscal 3600 documento abierto, factura u hoja suelta iniciada\n"
            "\n"
            "1 trama, 0 fallas, 1 comprobante\n");
}

TEST(Log, AnObjectOnEachLineForPrograms) {
  std::ostringstream out;
  const auto sheet = MakeJsonSheet(out);
  LogReport report({}, {}, Viewer({}, Mask(false)), *sheet);
  report.Feed(
      WrittenLog().Exchange("EP_CortaPapel()", "K", "K|0080|0600").Raw("\xFFroto\n").Text());
  report.End();
  EXPECT_EQ(
      out.str(),
      "{\"linea\":1,\"fecha\":\"16/11/"
      "2026\",\"hora\":\"02:25:15\",\"operacion\":\"EP_CortaPapel\",\"intento\":1,"
      "\"comando\":{\"byte\":\"K\",\"nombre\":\"Cortar papel\",\"secuencia\":42,\"campos\":[]},"
      "\"respuesta\":{\"impresora\":{\"palabra\":\"0080\",\"texto\":\"buffer vacío\"},"
      "\"fiscal\":{\"palabra\":\"0600\",\"texto\":\"en orden\"},\"datos\":[]},\"segundos\":0,"
      "\"resultado\":\"hecho\",\"falla\":false,\"notas\":[],\"comprobante\":null}\n"
      "{\"linea\":4,\"fecha\":\"\",\"hora\":\"\",\"operacion\":\"\",\"intento\":1,\"comando\":null,"
      "\"respuesta\":null,\"segundos\":null,\"resultado\":\"línea dañada\",\"falla\":true,"
      "\"notas\":[\"ÿroto\"],\"comprobante\":null}\n");
}

}  // namespace
}  // namespace kestra::tool
