#include "trace/exchange_text.hpp"

#include <gtest/gtest.h>

#include "booth.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::Booth;
using prueba::kEmpty;

struct Lines : Observer {
  void Exchanged(const Exchange& exchange) override { text.push_back(Describe(exchange)); }
  std::vector<std::string> text;
};

TEST(Trace, ATicketReadsInColumns) {
  Booth booth;
  Lines lines;
  booth.session.Attach(lines);
  booth.Ticket(40);
  EXPECT_EQ(
      lines.text,
      (std::vector<std::string>{
          "   1 10:30:00  0,0 ms  40 @  Abrir tique            ok  impresión=C -> imp 0080 buffer "
          "vacío · fis 1600 documento abierto",
          "   2 10:30:00  0,0 ms  41 B  Ítem de tique          ok  descripción=Pan cantidad=1000 "
          "precio=1000 IVA=2100 calificador=M bultos=0001 tasa de ajuste=0000 impuestos "
          "internos=0 -> imp 0080 buffer vacío · fis 1600 documento abierto",
          "   3 10:30:00  0,0 ms  42 E  Cerrar tique           ok  tipo=T -> imp 0080 buffer "
          "vacío · fis 0600 en orden · número=00000001"}));
}

TEST(Trace, WhatWentWrongStandsOut) {
  Booth booth;
  Lines lines;
  booth.session.Attach(lines);
  booth.session.Receive(Frame(41, "?"), booth.now);  // and the answer is lost
  booth.session.Advance(booth.now);
  booth.Send(41, {"?"});
  booth.Send(42, {"H", "sobra"});
  std::string damaged = Frame(43, "K");
  damaged.back() ^= 1;
  prueba::Ask(booth.session, damaged, booth.now);
  EXPECT_EQ(
      lines.text,
      (std::vector<std::string>{
          "   1 10:30:00  0,0 ms  41 ?  Comando 3F             ERR -> imp 0080 buffer vacío · "
          "fis 8608 comando no reconocido",
          "   2 10:30:00  0,0 ms  41 ?  Comando 3F             rep -> imp 0080 buffer vacío · "
          "fis 8608 comando no reconocido",
          "   3 10:30:00  0,0 ms  42 H  Abrir no fiscal        ERR campo 1=sobra -> imp 0080 "
          "buffer vacío · fis 8610 campo de datos inválido",
          "   4 10:30:00  0,0 ms   - -  trama dañada           NAK"}));
}

TEST(Trace, LongValuesAreCutAndEmptyOnesCounted) {
  Booth booth;
  Lines lines;
  booth.session.Attach(lines);
  booth.Send(40, {"]", "1", "Un texto de más de veinticuatro columnas"});
  booth.Send(41, {"^", "2"});
  booth.Send(42, {"d", kEmpty, kEmpty, "C"});
  const auto holds = [&lines](std::size_t i, std::string_view words) {
    return lines.text.at(i).find(words) != std::string::npos;
  };
  EXPECT_TRUE(holds(0, " texto='Un texto de mÃ¡s de vei…'")) << lines.text[0];
  EXPECT_TRUE(holds(1, " · línea=2 (1 vacío)")) << lines.text[1];
  EXPECT_TRUE(holds(2, " Descuento, recargo o … ERR calificador=C (2 vacíos) ->")) << lines.text[2];
}

TEST(Trace, FaultsAreNamedAtTheEnd) {
  Exchange exchange{.kind = ExchangeKind::kLost};
  exchange.packet.sequence = 40;
  exchange.packet.command = 'K';
  exchange.faults = {"perder", "demorar"};
  const std::string text = Describe(exchange);
  EXPECT_NE(text.find("Cortar papel           --- | falla: perder, demorar"), std::string::npos)
      << text;
}

TEST(Trace, DurationsInTheUnitThatSuitsThem) {
  struct Row {
    std::int64_t micros;
    std::string words;
  };
  const std::vector<Row> rows{{0, "0,0 ms"},         {449, "0,4 ms"},     {9'949, "9,9 ms"},
                              {10'000, "10 ms"},     {250'400, "250 ms"}, {1'000'000, "1,0 s"},
                              {12'340'000, "12,3 s"}};
  for (const Row& row : rows) EXPECT_EQ(Duration(Micros(row.micros)), row.words) << row.micros;
}

// The names are of use only as long as there is one for each datum that the printer sends.
TEST(Trace, EveryDatumOfAnAnswerHasAName) {
  Booth booth;
  struct Names : Observer {
    void Exchanged(const Exchange& exchange) override {
      for (const NamedValue& value : NamedAnswer(exchange.packet, exchange.answer)) {
        ++seen;
        EXPECT_NE(value.name.substr(0, 5), "dato ") << Describe(exchange);
      }
    }
    int seen = 0;
  } names;
  booth.session.Attach(names);
  std::uint8_t sequence = 40;
  for (const std::string_view query : {"A", "C", "D", "N", "P"}) {
    booth.Send(sequence++, {"*", query});
  }
  booth.Send(sequence++, {"Y"});
  booth.Send(sequence++, {"^", "1"});
  booth.Send(sequence++, {"@", "C"});
  booth.Send(sequence++, {"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"});
  booth.Send(sequence++, {"C", "N", kEmpty});
  booth.Send(sequence++, {"D", "Efectivo", "1000", "T"});
  booth.Send(sequence++, {"E", "T"});
  booth.Send(sequence++, {"9", "Z", "P"});
  booth.Send(sequence++, {";", "1", "1", "D"});
  EXPECT_EQ(names.seen, 11 + 4 + 5 + 4 + 11 + 2 + 2 + 9 + 2 + 1 + 10 + 1);
}

}  // namespace
}  // namespace impresora
