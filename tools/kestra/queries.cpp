#include <array>
#include <ctime>
#include <string>
#include <string_view>

#include "base/code_page.hpp"
#include "base/failure.hpp"
#include "commands.hpp"
#include "json.hpp"
#include "printer.hpp"
#include "protocol/books.hpp"
#include "settings.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

void RequireUnderstood(const Reply& reply) {
  if (!IsRefused(reply)) return;
  throw Stop(Exit::kRefused, "la impresora rechaza la pregunta: estado fiscal " + reply.fields[1]);
}

void TellPair(Console& console, std::string_view name, std::string_view value) {
  constexpr std::size_t kWidth = 24;
  console.Line(Padded(name, kWidth) + " " + std::string(value));
}

struct CounterName {
  std::string_view name;
  std::string_view key;  // for programs
};

constexpr std::array<CounterName, kCounters> kCounterNames = {{
    {"último Z", "z"},
    {"último tique", "tique"},
    {"última factura A", "factura_a"},
    {"última factura B", "factura_b"},
    {"última factura C", "factura_c"},
    {"cancelados hoy", "cancelados"},
    {"no fiscales hoy", "no_fiscales"},
    {"última nota de crédito A", "credito_a"},
    {"última nota de crédito B", "credito_b"},
    {"última nota de débito A", "debito_a"},
    {"última nota de débito B", "debito_b"},
}};

// ---- The clock ----

void SetClock(const Request& request) {
  Probe probe(PortOf(ReadWay()));
  if (!request.Has("--impresora-real") && !IsVirtual(probe)) {
    throw Stop(Exit::kUsage, "poner en hora una impresora fiscal pide --impresora-real");
  }
  const auto reply = probe.Ask(SetClockCommand(std::time(nullptr)));
  if (!reply.answered)
    throw Stop(Exit::kNoAnswer, "la impresora no contesta; ver kestra diagnostico");
  if (IsRefused(reply)) {
    throw Stop(Exit::kRefused,
               "la impresora no se deja poner en hora ahora: hacer antes el cierre Z");
  }
}

}  // namespace

Exit RunStatus(const Request&, Console& console) {
  const auto reply = AskByTheSettings(questions::kCounters);
  const auto lit = LitConditions(PrinterWord(reply), FiscalWord(reply));
  Json rows = Json::array();
  bool fails = false;
  for (const auto& [text, error] : lit) {
    fails = fails || error;
    rows.push_back({{"texto", text}, {"error", error}});
  }
  if (console.WantsJson()) {
    Print(console,
          {{"impresora", reply.fields[0]}, {"fiscal", reply.fields[1]}, {"estados", rows}});
  } else {
    TellPair(console, "palabra de la impresora", reply.fields[0]);
    TellPair(console, "palabra fiscal", reply.fields[1]);
    for (const auto& [text, error] : lit) console.Line((error ? "  FALLA  " : "         ") + text);
  }
  return fails ? Exit::kFindings : Exit::kGood;
}

Exit RunCounters(const Request&, Console& console) {
  const auto reply = AskByTheSettings(questions::kCounters);
  const auto counters = ReadCounters(BookFields(reply), ReadWay().model);
  if (!counters) RequireUnderstood(reply);
  if (!counters)
    throw Stop(Exit::kRefused, "la impresora cuenta su numeración en un orden que no se conoce");
  Json values = Json::object();
  for (std::size_t i = 0; i < kCounterNames.size(); ++i) {
    const auto& value = (*counters)[i];
    values[std::string(kCounterNames[i].key)] = value ? Json(*value) : Json();
    if (!console.WantsJson() && value)
      TellPair(console, kCounterNames[i].name, std::to_string(*value));
  }
  if (console.WantsJson()) Print(console, values);
  return Exit::kGood;
}

Exit RunClock(const Request& request, Console& console) {
  if (request.Has("--poner")) SetClock(request);
  const auto reply = AskByTheSettings(questions::kClock);
  const auto now = std::time(nullptr);
  const auto moment = ReadMoment(DataField(reply, 1), DataField(reply, 2));
  if (!moment) RequireUnderstood(reply);
  if (!moment) throw Stop(Exit::kRefused, "la impresora no dice una hora");
  const auto ahead = static_cast<long>(std::difftime(*moment, now));
  if (console.WantsJson()) {
    Print(console, {{"impresora", MomentInWords(*moment)},
                    {"maquina", MomentInWords(now)},
                    {"adelanta", ahead}});
  } else {
    TellPair(console, "impresora", MomentInWords(*moment));
    TellPair(console, "máquina", MomentInWords(now));
    TellPair(console, ahead < 0 ? "atrasa" : "adelanta", SpanInWords(static_cast<double>(ahead)));
  }
  return Exit::kGood;
}

Exit RunModel(const Request&, Console& console) {
  const auto reply = AskByTheSettings(questions::kModel);
  const auto data = ReadModel(reply);
  if (!data) RequireUnderstood(reply);
  if (!data)
    throw Stop(Exit::kRefused, "la impresora dice su modelo en una forma que no se conoce");
  Json digits = Json::object();
  for (std::size_t i = 0; i < kDigitKeys.size(); ++i) {
    digits[std::string(kDigitKeys[i].first)] = data->digits[i].first;
    digits[std::string(kDigitKeys[i].second)] = data->digits[i].second;
  }
  if (console.WantsJson()) {
    Print(console, {{"modelo", data->model},
                    {"familia", data->family},
                    {"punto_de_venta", data->point_of_sale},
                    {"columnas", data->columns},
                    {"digitos", digits}});
    return Exit::kGood;
  }
  TellPair(console, "modelo", data->model);
  TellPair(console, "familia", data->family);
  TellPair(console, "punto de venta", data->point_of_sale);
  TellPair(console, "columnas", std::to_string(data->columns));
  for (const auto& [key, value] : digits.items()) TellPair(console, key, value.dump());
  return Exit::kGood;
}

}  // namespace kestra::tool
