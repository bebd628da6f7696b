#include "trace/exchange_text.hpp"

#include <gtest/gtest.h>

#include "booth.hpp"

namespace impresora {
namespace {

using prueba::Booth;
using prueba::kEmpty;

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
