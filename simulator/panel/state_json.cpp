#include "panel/state_json.hpp"

#include <array>
#include <string_view>

#include "machine/controls.hpp"
#include "machine/status.hpp"
#include "panel/event_json.hpp"

namespace impresora {
namespace {

struct StageName {
  Stage stage;
  std::string_view name;
};

constexpr std::array<StageName, 7> kStages{{
    {Stage::kIdle, "libre"},
    {Stage::kTicketItems, "tique: ítems"},
    {Stage::kTicketPayments, "tique: pagos"},
    {Stage::kInvoiceItems, "factura: ítems"},
    {Stage::kInvoicePayments, "factura: pagos"},
    {Stage::kBetweenSheets, "entre dos hojas"},
    {Stage::kNonFiscal, "documento no fiscal"},
}};

struct SeriesName {
  Series series;
  std::string_view name;
};

constexpr std::array<SeriesName, 6> kSeries{{
    {Series::kTicket, "tique"},
    {Series::kInvoice, "factura"},
    {Series::kDebitNote, "nota de débito"},
    {Series::kCreditNote, "nota de crédito"},
    {Series::kDeliveryNote, "remito"},
    {Series::kOther, "comprobante"},
}};

constexpr std::string_view kLetters = "ABCRX";

std::string_view StageWords(Stage stage) {
  for (const StageName& row : kStages) {
    if (row.stage == stage) return row.name;
  }
  return {};
}

// What was forced, as the controls take it: on, off, or nothing.
Json ForcedJson(Forced forced) {
  return forced == Forced::kNo ? Json() : Json(forced == Forced::kOn);
}

template <std::size_t N>
bool IsError(std::uint16_t bit, const std::array<Condition, N>& conditions) {
  for (const Condition& condition : conditions) {
    if (condition.bit == bit) return condition.error;
  }
  return bit == kSummary;
}

Json WordJson(const Printer& printer, Word word) {
  const bool fiscal = word == Word::kFiscal;
  const std::uint16_t bits = fiscal ? printer.FiscalWord() : printer.PrinterWord();
  Json lamps = Json::array();
  for (const Lamp& lamp : Lamps()) {
    if (lamp.word != word) continue;
    const bool error =
        fiscal ? IsError(lamp.bit, kFiscalConditions) : IsError(lamp.bit, kPrinterConditions);
    lamps.push_back({{"clave", lamp.key},
                     {"nombre", lamp.words},
                     {"bit", Hex4(lamp.bit)},
                     {"encendida", (bits & lamp.bit) != 0},
                     {"error", error},
                     {"forzada", ForcedJson(ForcedLamp(printer.GetMachine(), lamp))}});
  }
  return {{"palabra", Hex4(bits)},
          {"significa", fiscal ? FiscalWords(bits) : PrinterWords(bits)},
          {"error", (bits & kSummary) != 0},
          {"lamparas", std::move(lamps)}};
}

Json DocumentJson(const Machine& machine) {
  if (!machine.document) return {};
  const Document& document = *machine.document;
  const Totals totals = document.Total();
  const std::int64_t paid = document.Paid();
  return {{"titulo", document.Kind().title},
          {"tipo", LetterText(document.Kind().code)},
          {"letra", LetterText(document.letter)},
          {"numero", document.number},
          {"renglones", document.lines},
          {"total", PlainMoney(totals.total)},
          {"iva", PlainMoney(totals.iva)},
          {"pagado", PlainMoney(paid)},
          {"falta_pagar", PlainMoney(totals.total > paid ? totals.total - paid : 0)}};
}

Json DayJson(const Day& day, const std::vector<DailyClosing>& closings) {
  return {{"abierta", day.opened.has_value()},
          {"desde", day.opened ? Json(IsoMoment(*day.opened)) : Json()},
          {"comprobantes", day.Documents()},
          {"ventas", PlainMoney(day.sales.total)},
          {"iva", PlainMoney(day.sales.Iva())},
          {"notas_de_credito", PlainMoney(day.credits.total)},
          {"cancelados", day.cancelled},
          {"no_fiscales", day.non_fiscal},
          {"ultimo_z", closings.empty() ? 0 : closings.back().number}};
}

Json NumberingJson(const Numbering& numbering) {
  Json rows = Json::array();
  for (const SeriesName& series : kSeries) {
    for (const char letter : kLetters) {
      const std::uint32_t last = numbering.Last(series.series, letter);
      if (last == 0) continue;
      rows.push_back({{"serie", series.name}, {"letra", LetterText(letter)}, {"ultimo", last}});
    }
  }
  return rows;
}

Json CountersJson(const Counters& counters, const Printer& printer) {
  return {{"comandos", counters.commands},
          {"con_error", counters.refused},
          {"repetidos", counters.repeated},
          {"dañados", counters.damaged},
          {"con_falla", counters.faulty},
          {"documentos", counters.documents},
          {"cancelados", counters.cancelled},
          {"lineas_de_papel", counters.lines},
          {"aperturas_de_cajon", printer.DrawerOpenings()}};
}

Json ValueJson(const Control& control, std::int64_t value) {
  if (control.kind == ControlKind::kSwitch) return value != 0;
  if (control.kind == ControlKind::kNumber) return value;
  return ControlText(control, value);
}

constexpr std::string_view KindWord(ControlKind kind) {
  if (kind == ControlKind::kSwitch) return "llave";
  return kind == ControlKind::kNumber ? "numero" : "momento";
}

}  // namespace

std::string_view FamilyCode(Family family) {
  if (family == Family::kTicket) return "TQ";
  return family == Family::kForm ? "FC" : "TF";
}

Json ControlsJson(const Printer& printer) {
  Json rows = Json::array();
  for (const Control& control : Controls()) {
    rows.push_back({{"clave", control.key},
                    {"nombre", control.words},
                    {"clase", KindWord(control.kind)},
                    {"minimo", control.least},
                    {"maximo", control.most},
                    {"valor", ValueJson(control, control.get(printer.GetMachine()))}});
  }
  return rows;
}

Json FaultRulesJson(const FaultPlan& plan) {
  Json rows = Json::array();
  for (const FaultCount& rule : plan.Rules()) {
    rows.push_back({{"numero", rule.id},
                    {"regla", rule.text},
                    {"veces", rule.due},
                    {"actuo", rule.acted},
                    {"terminada", rule.over}});
  }
  return rows;
}

Json StateJson(Session& session, const History& history) {
  session.LookAtClock();
  const Printer& printer = session.GetPrinter();
  const Machine& machine = printer.GetMachine();
  const KeptDocument* const last = history.FindDocument(0);
  const Json document = DocumentJson(machine);
  return {
      {"familia", FamilyCode(printer.GetSettings().family)},
      {"modelo", printer.GetSettings().model},
      {"punto_de_venta", printer.GetSettings().point_of_sale},
      {"columnas", printer.GetSettings().PaperColumns()},
      {"etapa", StageWords(printer.GetStage())},
      {"abierto", printer.GetStage() != Stage::kIdle},
      {"documento", document},
      {"ultimo_documento", last != nullptr ? Json::parse(ReceiptJson(last->receipt)) : Json()},
      {"impresora", WordJson(printer, Word::kPrinter)},
      {"fiscal", WordJson(printer, Word::kFiscal)},
      {"jornada", DayJson(machine.day, machine.closings)},
      {"numeracion", NumberingJson(machine.numbering)},
      {"cierres_restantes", machine.closings_left},
      {"papel_restante", machine.paper_left == kEndlessPaper ? Json() : Json(machine.paper_left)},
      {"contadores", CountersJson(history.GetCounters(), printer)},
      {"controles", ControlsJson(printer)},
      {"fallas", FaultRulesJson(session.Faults())}};
}

}  // namespace impresora
