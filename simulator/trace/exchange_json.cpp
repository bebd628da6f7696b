#include "trace/exchange_json.hpp"

#include <array>
#include <string_view>

#include "fiscal/calendar.hpp"
#include "machine/status.hpp"
#include "trace/exchange_text.hpp"

namespace impresora {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<std::string_view, 4> kKinds{"ejecutado", "repetido", "danado", "perdido"};

std::string IsoTime(std::int64_t moment) {
  const std::string date = DateDigits(moment);
  return "20" + date.substr(0, 2) + "-" + date.substr(2, 2) + "-" + date.substr(4) + "T" +
         PrintedTime(moment);
}

Json Values(const std::vector<NamedValue>& values) {
  Json list = Json::array();
  for (const NamedValue& value : values) {
    list.push_back({{"nombre", value.name}, {"valor", value.value}});
  }
  return list;
}

template <typename Conditions>
Json Word(std::uint16_t word, const Conditions& conditions) {
  Json words = Json::array();
  for (const Condition& condition : conditions) {
    if ((word & condition.bit) != 0) words.push_back(condition.words);
  }
  return {{"palabra", Hex4(word)}, {"error", (word & kSummary) != 0}, {"condiciones", words}};
}

Json Command(const Packet& packet) {
  return {{"byte", CommandMark(packet.command)},
          {"nombre", CommandName(packet.command)},
          {"campos", Values(NamedFields(packet))}};
}

Json AnswerObject(const Exchange& exchange) {
  Json object{{"impresora", Word(exchange.answer.printer, kPrinterConditions)},
              {"fiscal", Word(exchange.answer.fiscal, kFiscalConditions)},
              {"datos", Values(NamedAnswer(exchange.packet, exchange.answer))}};
  if (!exchange.answer.why.empty()) object["motivo"] = exchange.answer.why;
  return object;
}

}  // namespace

Json TraceObject(const Exchange& exchange) {
  const bool understood = exchange.kind != ExchangeKind::kDamaged;
  const bool answered = exchange.kind <= ExchangeKind::kRepeated;
  const Micros took = exchange.answered_at - exchange.received_at;
  Json object{{"numero", exchange.number},
              {"hora", IsoTime(exchange.moment)},
              {"demora_us", took.count()},
              {"resultado", kKinds.at(static_cast<std::size_t>(exchange.kind))}};
  object["secuencia"] = understood ? Json(exchange.packet.sequence) : Json();
  object["comando"] = understood ? Command(exchange.packet) : Json();
  object["respuesta"] = answered ? AnswerObject(exchange) : Json();
  object["fallas"] = exchange.faults;
  object["bytes"] = {{"comando", HexBytes(exchange.raw_command)},
                     {"respuesta", HexBytes(exchange.raw_answer)}};
  return object;
}

std::string TraceJson(const Exchange& exchange) {
  return TraceObject(exchange).dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace impresora
