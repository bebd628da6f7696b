#include "sale/plan.hpp"

#include <array>
#include <charconv>
#include <chrono>

namespace puerta {
namespace {

constexpr int kMostClosings = 99'999;
constexpr int kMostHeaderLines = 30;
constexpr std::size_t kMostPlainLines = 200;

void PlanDocument(const Json& body, const Facts& facts, Plan& plan) {
  const Sale sale = ReadSale(body, facts, plan.errors);
  const Total total = CheckSums(sale, plan.errors);
  if (!plan.errors.empty()) return;
  plan.calls = CallsOf(sale);
  plan.counter = CounterOf(sale.kind->name, sale.letter);
  plan.told = {{"tipo", sale.kind->name}, {"letra", sale.letter}};
  if (sale.kind->sells) plan.told["total"] = FixedText(total.amount, 2);
}

// ---- Dates ----

// The number that stands at that place, in so many digits; -1 when there is something else.
int DigitsAt(std::string_view text, std::size_t at, std::size_t count) {
  const auto part = text.substr(std::min(at, text.size()), count);
  if (part.size() != count || part.find_first_not_of("0123456789") != std::string_view::npos)
    return -1;
  int number = -1;
  std::from_chars(part.data(), part.data() + part.size(), number);
  return number;
}

// "2026-11-22" as the printer writes it, "261122"; empty when there is no such day.
std::string DayOf(std::string_view text) {
  const int year = DigitsAt(text, 0, 4), month = DigitsAt(text, 5, 2), day = DigitsAt(text, 8, 2);
  const bool formed = text.size() == 10 && text[4] == '-' && text[7] == '-';
  if (!formed || year < 2000 || year > 2099 || month < 1 || day < 1) return {};
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return {};
  return std::string(text.substr(2, 2)).append(text.substr(5, 2)).append(text.substr(8, 2));
}

// "18:30:00" as "183000".
std::string HourOf(std::string_view text) {
  const int hour = DigitsAt(text, 0, 2), minute = DigitsAt(text, 3, 2),
            second = DigitsAt(text, 6, 2);
  const bool formed = text.size() == 8 && text[2] == ':' && text[5] == ':';
  const bool there =
      hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (!formed || !there) return {};
  return std::string(text.substr(0, 2)).append(text.substr(3, 2)).append(text.substr(6, 2));
}

std::string ReadDay(Part& part, std::string_view key) {
  const auto text = part.Text(key, {.most = 40, .required = true});
  auto day = DayOf(text);
  if (!text.empty() && day.empty()) part.Wrong(key, "se espera una fecha como 2026-11-22");
  return day;
}

// ---- Reports ----

void PlanDaily(Part&, Plan& plan, std::string_view name, bool closes) {
  plan.calls.push_back({.name = name});
  if (closes) plan.counter = kClosings;
}

void PlanByDates(Part& part, Plan& plan) {
  const auto from = ReadDay(part, "desde");
  const auto to = ReadDay(part, "hasta");
  if (!from.empty() && !to.empty() && from > to) part.Wrong("hasta", "es antes que desde");
  plan.calls.push_back({.name = "EP_ReporteZporFechas", .texts = {from, to}});
}

void PlanByNumbers(Part& part, Plan& plan) {
  const auto from = part.Number("desde", 1, kMostClosings);
  const auto to = part.Number("hasta", 1, kMostClosings);
  if (from && to && *from > *to) part.Wrong("hasta", "es menor que desde");
  plan.calls.push_back({.name = "EP_ReporteZporNumeros",
                        .numbers = {static_cast<std::int32_t>(from.value_or(0)),
                                    static_cast<std::int32_t>(to.value_or(0))}});
}

struct Report {
  std::string_view name;
  void (*plan)(Part& part, Plan& plan);
};
constexpr std::array kReports{
    Report{"x", [](Part& part, Plan& plan) { PlanDaily(part, plan, "EP_ReporteX", false); }},
    Report{"z", [](Part& part, Plan& plan) { PlanDaily(part, plan, "EP_ReporteZ", true); }},
    Report{"fechas", PlanByDates},
    Report{"numeros", PlanByNumbers},
};

void PlanReport(const Json& body, const Facts&, Plan& plan) {
  Part part(body, "", plan.errors);
  const auto type = part.Text("tipo", {.most = 40, .required = true});
  const auto* const report = FindNamed(kReports, type);
  if (report == nullptr && !type.empty()) part.Wrong("tipo", "se espera x, z, fechas o numeros");
  if (report == nullptr) return;
  report->plan(part, plan);
  plan.told["tipo"] = type;
  part.NoteUnknown();
}

// ---- The rest ----

void PlanPlainPage(const Json& body, const Facts& facts, Plan& plan) {
  Part part(body, "", plan.errors);
  const auto lines = part.Texts("renglones", kMostPlainLines,
                                {.most = facts.plain_text, .respells = facts.respells});
  if (!part.Has("renglones")) part.Wrong("renglones", "falta");
  if (part.Has("renglones") && lines.empty() && plan.errors.empty())
    part.Wrong("renglones", "está vacía");
  part.NoteUnknown();
  plan.calls.push_back({.name = "EP_AbrirComprobanteNoFiscal"});
  int number = 0;
  for (const auto& line : lines)
    plan.calls.push_back({.name = "EP_ImprimirTextoNoFiscal", .texts = {line}, .line = ++number});
  plan.calls.push_back({.name = "EP_CerrarComprobanteNoFiscal"});
  plan.counter = kNonFiscal;
}

void PlanDrawer(const Json& body, const Facts&, Plan& plan) {
  Part part(body, "", plan.errors);
  const auto drawer = part.Number("cajon", 1, 2, false);
  part.NoteUnknown();
  plan.calls.push_back({.name = "EP_AbrirCajonDeDinero",
                        .numbers = {static_cast<std::int32_t>(drawer.value_or(1))}});
}

void PlanClock(const Json& body, const Facts&, Plan& plan) {
  Part part(body, "", plan.errors);
  const std::string text = part.Text("fecha_hora", {.most = 40, .required = true});
  part.NoteUnknown();
  const auto between = text.find('T');
  const auto day = DayOf(std::string_view(text).substr(0, between));
  const auto hour =
      between == std::string::npos ? "" : HourOf(std::string_view(text).substr(between + 1));
  if (!text.empty() && (day.empty() || hour.empty()))
    part.Wrong("fecha_hora", "se espera una fecha y hora como 2026-11-22T18:30:00");
  plan.calls.push_back({.name = "EP_CambiarFechaHora", .texts = {day, hour}});
}

void PlanHeader(const Json& body, const Facts& facts, Plan& plan) {
  Part part(body, "", plan.errors);
  for (auto& line : part.List("lineas", 1, kMostHeaderLines)) {
    const auto number = line.Number("linea", 1, kMostHeaderLines);
    if (!line.Has("texto")) line.Wrong("texto", "falta");
    const auto text = line.Text("texto", {.most = facts.header, .respells = facts.respells});
    const bool wide = line.Flag("doble_ancho");
    line.NoteUnknown();
    plan.calls.push_back({.name = "EP_SetEncabezado",
                          .texts = {text},
                          .numbers = {static_cast<std::int32_t>(number.value_or(0)), wide ? 1 : 0},
                          .line = static_cast<int>(plan.calls.size()) + 1});
  }
  part.NoteUnknown();
}

void PlanCancelling(const Json& body, const Facts&, Plan& plan) {
  Part(body, "", plan.errors).NoteUnknown();
  plan.calls.push_back({.name = "EP_Cancelar"});
}

void PlanQuestion(const Json&, const Facts&, Plan&) {}

struct Operation {
  std::string_view name;
  void (*plan)(const Json& body, const Facts& facts, Plan& plan);
  bool changes = true;
};
constexpr std::array kOperations{
    Operation{"comprobante", PlanDocument},
    Operation{"informe", PlanReport},
    Operation{"no_fiscal", PlanPlainPage},
    Operation{"cajon", PlanDrawer},
    Operation{"reloj", PlanClock},
    Operation{"encabezados", PlanHeader},
    Operation{"cancelar", PlanCancelling},
    Operation{"leer_reloj", PlanQuestion, false},
    Operation{"numeracion", PlanQuestion, false},
    Operation{"estado", PlanQuestion, false},
};

}  // namespace

Plan PlanOf(std::string_view operation, const Json& body, const Facts& facts) {
  Plan plan;
  const auto* const row = FindNamed(kOperations, operation);
  if (row == nullptr) {
    plan.errors.push_back({"", "no se conoce esta operación"});
  } else {
    row->plan(body, facts, plan);
  }
  if (!plan.errors.empty()) plan.calls.clear();
  return plan;
}

bool ChangesThePrinter(std::string_view operation) {
  const auto* const row = FindNamed(kOperations, operation);
  return row != nullptr && row->changes;
}

}  // namespace puerta
