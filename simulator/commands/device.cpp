// The status, the clock, the headers, the paper and the drawer.
#include <algorithm>
#include <array>

#include "commands/families.hpp"
#include "fiscal/calendar.hpp"
#include "machine/status.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

std::string Count(unsigned value) {
  return Padded(value, 5);
}

// Of the finished documents: a host that was not told how its close ended finds out here.
std::string LastNumber(const Machine& m, Series series, char letter) {
  const bool open =
      m.document && m.document->Kind().series == series && m.document->letter == letter;
  return Padded(m.numbering.Last(series, letter) - (open ? 1U : 0U), 8);
}

std::string LastClosing(const Machine& m) {
  return Padded(static_cast<std::int64_t>(m.closings.size()), 5);
}

std::vector<std::string> Counters(const Machine& m) {
  return {LastClosing(m),
          LastNumber(m, Series::kTicket, 'B'),
          LastNumber(m, Series::kInvoice, 'A'),
          LastNumber(m, Series::kInvoice, 'B'),
          LastNumber(m, Series::kInvoice, 'C'),
          Count(m.day.cancelled),
          Count(m.day.non_fiscal),
          LastNumber(m, Series::kCreditNote, 'A'),
          LastNumber(m, Series::kCreditNote, 'B'),
          LastNumber(m, Series::kDebitNote, 'A'),
          LastNumber(m, Series::kDebitNote, 'B')};
}

std::string DigitPair(Digits digits) {
  return std::to_string(digits.integers) + std::to_string(digits.decimals);
}

std::string_view FamilyCode(Family family) {
  if (family == Family::kTicket) return "TQ";
  return family == Family::kForm ? "FC" : "TF";
}

std::vector<std::string> Model(const Machine& m) {
  const FieldDigits& digits = m.settings.digits;
  return {std::string(FamilyCode(m.settings.family)),
          DigitPair(digits.quantity),
          DigitPair(digits.price),
          DigitPair(digits.rate),
          DigitPair(digits.internal_tax),
          DigitPair(digits.amount),
          DigitPair(digits.perception),
          Padded(static_cast<std::int64_t>(m.settings.PaperColumns()), 3),
          Padded(kHeaderLines, 2),
          Padded(m.settings.point_of_sale, 4),
          m.settings.model};
}

std::vector<std::string> Owner(const Machine& m) {
  return {m.settings.owner_cuit, Padded(m.settings.point_of_sale, 4),
          std::string(1, m.settings.owner_iva), m.settings.owner};
}

std::vector<std::string> DayFigures(const Machine& m) {
  return {Count(m.day.Documents()), Padded(m.day.sales.total, 12), Padded(m.day.sales.Iva(), 12),
          Padded(m.day.credits.total, 12), Padded(m.closings_left, 5)};
}

std::vector<std::string> Summary(const Machine& m) {
  return {DateDigits(m.now), TimeDigits(m.now), LastClosing(m), Padded(m.closings_left, 5)};
}

struct StatusQuery {
  char letter;
  std::vector<std::string> (*answer)(const Machine&);
};

constexpr std::array<StatusQuery, 4> kStatusQueries{{
    {'A', Counters},
    {'P', Model},
    {'C', Owner},
    {'D', DayFigures},
}};

// The fiscal clock never goes back behind what the printer has recorded.
std::int64_t EarliestClock(const Machine& m) {
  const std::int64_t closed = m.closings.empty() ? 0 : m.closings.back().moment;
  return m.day.opened ? std::max(closed, m.now) : closed;
}

// The header's lines, then the trailer's, counted from 1.
std::string* FindLine(Machine& m, std::int64_t number) {
  if (number < 1 || number > kHeaderLines + kTrailerLines) return nullptr;
  const auto index = static_cast<std::size_t>(number - 1);
  return index < kHeaderLines ? &m.header.at(index) : &m.trailer.at(index - kHeaderLines);
}

Outcome QueryStatus(Machine& m, const Fields& f) {
  for (const StatusQuery& query : kStatusQueries) {
    if (query.letter == f.Letter("consulta")) return Answered(query.answer(m));
  }
  return Answered(Summary(m));
}

Outcome CutPaper(Machine& m, const Fields& /*f*/) {
  m.paper.Cut();
  return {};
}

Outcome FeedPaper(Machine& m, const Fields& f) {
  m.paper.Feed(static_cast<int>(f.Number("líneas")));
  return {};
}

Outcome SetClock(Machine& m, const Fields& f) {
  const std::int64_t wanted = f.Number("fecha") + f.Number("hora");
  if (wanted < EarliestClock(m)) return Refused(kWrongState);
  m.clock_offset += wanted - m.now;
  m.now = wanted;
  return {};
}

Outcome ReadClock(Machine& m, const Fields& /*f*/) {
  return Answered({DateDigits(m.now), TimeDigits(m.now)});
}

Outcome SetHeader(Machine& m, const Fields& f) {
  std::string* const line = FindLine(m, f.Number("línea"));
  if (line == nullptr) return Refused(kInvalidField);
  *line = TrimRight(f.Text("texto"));
  return {};
}

Outcome ReadHeader(Machine& m, const Fields& f) {
  const std::string* const line = FindLine(m, f.Number("línea"));
  if (line == nullptr) return Refused(kInvalidField);
  return Answered({std::to_string(f.Number("línea")), *line});
}

Outcome OpenDrawer(Machine& m, const Fields& /*f*/) {
  ++m.drawer_openings;
  return {};
}

constexpr int kAllLines = kHeaderLines + kTrailerLines;

constexpr CommandRow DrawerRow(std::uint8_t byte, std::string_view name) {
  return {.byte = byte,
          .name = name,
          .families = kAnyFamily,
          .stages = kAtAnyTime,
          .printing = Printing::kNever,
          .run = OpenDrawer};
}

constexpr std::array kDeviceRows{
    CommandRow{
        .byte = '*',
        .name = "Consulta de estado",
        .word = "consulta",
        .fields = {Choice("consulta", "ACDNP")},
        .families = kAnyFamily,
        .stages = kAtAnyTime,
        .printing = Printing::kQuestion,
        .answers =
            {{.field = "consulta",
              .letter = 'A',
              .names = {"último cierre", "último tique", "última factura A", "última factura B",
                        "última factura C", "cancelados", "no fiscales", "última nota de crédito A",
                        "última nota de crédito B", "última nota de débito A",
                        "última nota de débito B"}},
             {.field = "consulta",
              .letter = 'P',
              .names = {"familia", "dígitos de cantidad", "dígitos de precio", "dígitos de IVA",
                        "dígitos de internos", "dígitos de importe", "dígitos de percepción",
                        "columnas", "líneas de encabezado", "punto de venta", "modelo"}},
             {.field = "consulta",
              .letter = 'C',
              .names = {"CUIT", "punto de venta", "condición ante el IVA", "titular"}},
             {.field = "consulta",
              .letter = 'D',
              .names = {"comprobantes", "ventas", "IVA", "notas de crédito", "cierres restantes"}},
             {.names = {"fecha", "hora", "último cierre", "cierres restantes"}}},
        .run = QueryStatus},
    CommandRow{.byte = 'K',
               .name = "Cortar papel",
               .families = kAnyFamily,
               .stages = kWhenIdle | kInNonFiscal,
               .printing = Printing::kAlways,
               .run = CutPaper},
    CommandRow{.byte = 'R',
               .name = "Avanzar papel",
               .fields = {Number("líneas", 99)},
               .required = 1,
               .families = kAnyFamily,
               .stages = kAtAnyTime,
               .printing = Printing::kAlways,
               .run = FeedPaper},
    CommandRow{.byte = 'X',
               .name = "Fijar fecha y hora",
               .fields = {Field("fecha", FieldKind::kDate), Field("hora", FieldKind::kTime)},
               .required = 2,
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kNever,
               .answers = {{.names = {"fecha", "hora"}}},
               .run = SetClock},
    CommandRow{.byte = 'Y',
               .name = "Leer fecha y hora",
               .families = kAnyFamily,
               .stages = kAtAnyTime,
               .printing = Printing::kQuestion,
               .answers = {{.names = {"fecha", "hora"}}},
               .run = ReadClock},
    CommandRow{.byte = ']',
               .name = "Fijar encabezado",
               .fields = {Number("línea", kAllLines), Text("texto", &TextLengths::header)},
               .required = 2,
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kNever,
               .run = SetHeader},
    CommandRow{.byte = '^',
               .name = "Leer encabezado",
               .fields = {Number("línea", kAllLines)},
               .required = 1,
               .families = kAnyFamily,
               .stages = kAtAnyTime,
               .printing = Printing::kQuestion,
               .answers = {{.names = {"línea", "texto"}}},
               .run = ReadHeader},
    DrawerRow('{', "Abrir cajón"),
    DrawerRow('|', "Abrir cajón 2"),
};

}  // namespace

std::span<const CommandRow> DeviceCommands() {
  return kDeviceRows;
}

}  // namespace impresora
