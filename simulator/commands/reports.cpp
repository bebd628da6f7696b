// Reports and the closings of the day.
#include <array>

#include "commands/families.hpp"
#include "fiscal/calendar.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"

namespace impresora {
namespace {

std::vector<std::string> ReportFields(const Day& day, std::uint32_t number) {
  return {Padded(number, 5),
          Padded(day.cancelled, 5),
          Padded(day.non_fiscal, 5),
          Padded(day.Documents(), 5),
          Padded(day.sales.total, 12),
          Padded(day.sales.Iva(), 12),
          Padded(day.sales.perceptions, 12),
          Padded(day.credits.documents, 5),
          Padded(day.credits.total, 12),
          Padded(day.credits.Iva(), 12)};
}

template <class Wanted>
Outcome ListClosings(Machine& m, char detail, Wanted wanted) {
  std::vector<DailyClosing> chosen;
  for (const DailyClosing& closing : m.closings) {
    if (wanted(closing)) chosen.push_back(closing);
  }
  PrintClosingList(m, chosen, detail != 'T');
  m.Finish({.receipt_class = ReceiptClass::kReport, .kind = "CIERRES Z DE LA MEMORIA FISCAL"});
  return Answered({Padded(static_cast<std::int64_t>(chosen.size()), 5)});
}

Receipt ReportReceipt(char type, std::uint32_t number, const Day& day) {
  Receipt receipt;
  receipt.receipt_class = ReceiptClass::kReport;
  receipt.kind = type == 'Z' ? "CIERRE Z" : "INFORME X";
  receipt.number = number;
  receipt.total = day.sales.total;
  receipt.iva = day.sales.Iva();
  return receipt;
}

Outcome DailyReport(Machine& m, const Fields& f) {
  const char type = f.Letter("tipo");
  if (type == 'Z' && (m.MemoryFull() || m.MemoryDamaged())) return Refused(kWrongState);
  const auto number = static_cast<std::uint32_t>(m.closings.size() + 1);
  if (type == 'Z' || f.Letter("salida") != 'N') {
    PrintDailyReport(m, type, number);
    m.Finish(ReportReceipt(type, number, m.day));
  }
  Outcome outcome = Answered(ReportFields(m.day, number));
  if (type == 'Z') {
    m.closings.push_back({number, m.now, m.day});
    m.day = {};
    --m.closings_left;
  }
  return outcome;
}

Outcome ClosingsByNumber(Machine& m, const Fields& f) {
  const std::int64_t first = f.Number("desde");
  const std::int64_t last = f.Number("hasta");
  if (first > last) return Refused(kInvalidField);
  return ListClosings(m, f.Letter("detalle"), [first, last](const DailyClosing& closing) {
    return closing.number >= first && closing.number <= last;
  });
}

Outcome ClosingsByDate(Machine& m, const Fields& f) {
  const std::int64_t first = f.Number("desde");
  const std::int64_t end = f.Number("hasta") + kSecondsPerDay;
  if (first >= end) return Refused(kInvalidField);
  return ListClosings(m, f.Letter("detalle"), [first, end](const DailyClosing& closing) {
    return closing.moment >= first && closing.moment < end;
  });
}

constexpr int kLargestClosing = 99'999;

constexpr std::array kReportRows{
    CommandRow{.byte = '9',
               .name = "Cierre de jornada",
               .word = "jornada",
               .fields = {Choice("tipo", "XZ"), Choice("salida", "PN")},
               .required = 1,
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kAlways,
               .answers = {{.names = {"número de Z", "cancelados", "no fiscales", "comprobantes",
                                      "ventas", "IVA", "percepciones", "notas de crédito",
                                      "total de créditos", "IVA de créditos"}}},
               .run = DailyReport},
    CommandRow{.byte = ':',
               .name = "Cierres por fecha",
               .fields = {Field("desde", FieldKind::kDate), Field("hasta", FieldKind::kDate),
                          Choice("detalle", "DT")},
               .required = 2,
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kAlways,
               .answers = {{.names = {"cierres listados"}}},
               .run = ClosingsByDate},
    CommandRow{.byte = ';',
               .name = "Cierres por número",
               .fields = {Number("desde", kLargestClosing), Number("hasta", kLargestClosing),
                          Choice("detalle", "DT")},
               .required = 2,
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kAlways,
               .answers = {{.names = {"cierres listados"}}},
               .run = ClosingsByNumber},
};

}  // namespace

std::span<const CommandRow> ReportCommands() {
  return kReportRows;
}

}  // namespace impresora
