#include <algorithm>
#include <string>

#include "fiscal/calendar.hpp"
#include "paper/layout.hpp"

namespace impresora {
namespace {

void PrintMovement(Machine& m, std::string_view title, const Movement& movement) {
  m.paper.Line(title, Paper::Style::kStrong);
  m.paper.Split("  Comprobantes", std::to_string(movement.documents));
  for (const RateTotal& row : movement.rates) {
    const std::string rate = FormatDecimal(row.rate, kRateDecimals) + "%";
    m.paper.Split("  Neto gravado al " + rate, FormatMoney(row.net));
    m.paper.Split("  IVA " + rate, FormatMoney(row.iva));
  }
  m.paper.Split("  Impuestos internos", FormatMoney(movement.internal));
  m.paper.Split("  Percepciones", FormatMoney(movement.perceptions));
  m.paper.Split("  TOTAL", "$ " + FormatMoney(movement.total), Paper::Style::kStrong);
}

void PrintDay(Machine& m, const Day& day) {
  PrintMovement(m, "VENTAS", day.sales);
  PrintMovement(m, "NOTAS DE CRÉDITO", day.credits);
  m.paper.Rule('-');
  m.paper.Split("Comprobantes sin importe", std::to_string(day.unpriced));
  m.paper.Split("Comprobantes cancelados", std::to_string(day.cancelled));
  m.paper.Split("Documentos no fiscales", std::to_string(day.non_fiscal));
}

struct SeriesLine {
  std::string_view title;
  Series series;
  char letter;
};

constexpr std::array<SeriesLine, 20> kSeriesLines{{
    {"Último tique", Series::kTicket, 'B'},
    {"Última factura A", Series::kInvoice, 'A'},
    {"Última factura B", Series::kInvoice, 'B'},
    {"Última factura C", Series::kInvoice, 'C'},
    {"Última nota de débito A", Series::kDebitNote, 'A'},
    {"Última nota de débito B", Series::kDebitNote, 'B'},
    {"Última nota de débito C", Series::kDebitNote, 'C'},
    {"Última nota de crédito A", Series::kCreditNote, 'A'},
    {"Última nota de crédito B", Series::kCreditNote, 'B'},
    {"Última nota de crédito C", Series::kCreditNote, 'C'},
    {"Último remito A", Series::kDeliveryNote, 'A'},
    {"Último remito B", Series::kDeliveryNote, 'B'},
    {"Último remito C", Series::kDeliveryNote, 'C'},
    {"Último remito R", Series::kDeliveryNote, 'R'},
    {"Último remito X", Series::kDeliveryNote, 'X'},
    {"Último comprobante A", Series::kOther, 'A'},
    {"Último comprobante B", Series::kOther, 'B'},
    {"Último comprobante C", Series::kOther, 'C'},
    {"Último comprobante R", Series::kOther, 'R'},
    {"Último comprobante X", Series::kOther, 'X'},
}};

constexpr bool HasLine(Series series, char letter) {
  return std::any_of(kSeriesLines.begin(), kSeriesLines.end(), [=](const SeriesLine& line) {
    return line.series == series && line.letter == letter;
  });
}

constexpr bool EveryKindHasItsLines() {
  return std::all_of(kInvoiceKinds.begin(), kInvoiceKinds.end(), [](const DocumentKind& kind) {
    return std::all_of(kind.letters.begin(), kind.letters.end(),
                       [&kind](char letter) { return HasLine(kind.series, letter); });
  });
}
static_assert(EveryKindHasItsLines(), "a number that was used is on the reports");

void PrintNumbering(Machine& m) {
  for (const SeriesLine& line : kSeriesLines) {
    const std::uint32_t last = m.numbering.Last(line.series, line.letter);
    if (last > 0) m.paper.Split(line.title, Padded(last, 8));
  }
}

void PrintClosing(Machine& m, const DailyClosing& closing) {
  m.paper.Rule('-');
  m.paper.Split("Z Nº " + Padded(closing.number, 5), PrintedDate(closing.moment));
  m.paper.Split("  Ventas", FormatMoney(closing.day.sales.total));
  m.paper.Split("  IVA de ventas", FormatMoney(closing.day.sales.Iva()));
  m.paper.Split("  Notas de crédito", FormatMoney(closing.day.credits.total));
}

}  // namespace

void PrintDailyReport(Machine& m, char type, std::uint32_t number) {
  PrintLetterhead(m);
  m.paper.Wide(type == 'Z' ? "CIERRE Z" : "INFORME X");
  m.paper.Split("P.V. Nº " + Padded(m.settings.point_of_sale, 4),
                (type == 'Z' ? "Z Nº " : "X previo al Z Nº ") + Padded(number, 5));
  m.paper.Split("Fecha " + PrintedDate(m.now), "Hora " + PrintedTime(m.now));
  m.paper.Rule('-');
  PrintDay(m, m.day);
  m.paper.Rule('-');
  PrintNumbering(m);
  PrintFoot(m, type == 'Z' ? Paper::Style::kLogo : Paper::Style::kPlain);
}

void PrintClosingList(Machine& m, const std::vector<DailyClosing>& closings, bool detailed) {
  PrintLetterhead(m);
  m.paper.Center("CIERRES Z DE LA MEMORIA FISCAL");
  m.paper.Split("Fecha " + PrintedDate(m.now), "Hora " + PrintedTime(m.now));
  std::int64_t sold = 0;
  std::int64_t credited = 0;
  for (const DailyClosing& closing : closings) {
    if (detailed) PrintClosing(m, closing);
    sold += closing.day.sales.total;
    credited += closing.day.credits.total;
  }
  m.paper.Rule('=');
  m.paper.Split("Cierres", std::to_string(closings.size()));
  m.paper.Split("TOTAL VENTAS", "$ " + FormatMoney(sold));
  m.paper.Split("TOTAL NOTAS DE CRÉDITO", "$ " + FormatMoney(credited));
  PrintFoot(m);
}

}  // namespace impresora
