// Subtotals, corrections, payments and perceptions of the open fiscal document.
#include <array>
#include <utility>

#include "commands/families.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"

namespace impresora {
namespace {

constexpr int kMoneyWidth = 12;

// Answers tell units in thousandths, whatever the decimals of the quantities.
constexpr std::int64_t kOfAThousandth = 10;

std::string MoneyField(std::int64_t hundredths) {
  return Padded(hundredths, kMoneyWidth);
}

Outcome Corrected(Machine& m, Entry entry, const Fields& f, std::int64_t amount) {
  if (entry == Entry::kRejected) return Refused(kInvalidField);
  if (entry == Entry::kTooLarge) return Refused(kOverflow);
  PrintCorrection(m, f.Text("descripción"), amount);
  return {};
}

Outcome Adjust(Machine& m, const Fields& f, int sign) {
  const std::int64_t amount = sign * f.Number("importe");
  return Corrected(m, m.document->Adjust(amount), f, amount);
}

Outcome Pay(Machine& m, const Fields& f) {
  Document& document = *m.document;
  if (document.Pay({std::string(f.Text("descripción")), f.Number("importe")}) != Entry::kDone) {
    return Refused(kOverflow);
  }
  if (document.payments.size() == 1) PrintTotal(m);
  PrintPayment(m, document.payments.back());
  const std::int64_t left = document.Total().total - document.Paid();
  return Answered({MoneyField(left > 0 ? left : 0), MoneyField(left < 0 ? -left : 0)});
}

Outcome Cancel(Machine& m) {
  PrintCancelled(m);
  ++m.day.cancelled;
  Receipt receipt = ReceiptOf(*m.document);
  receipt.cancelled = true;
  m.document.reset();
  m.Finish(std::move(receipt));
  return {};
}

Outcome AdjustPayOrCancel(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const char qualifier = f.Letter("calificador");
  if (qualifier == 'C') return Cancel(m);
  if (!document.HasItems() || document.between_sheets) return Refused(kWrongState);
  if (f.Empty("importe")) return Refused(kInvalidField);
  if (qualifier == 'T') return Pay(m, f);
  if (document.paying) return Refused(kWrongState);
  return Adjust(m, f, qualifier == 'D' ? -1 : 1);
}

Outcome Perception(Machine& m, const Fields& f) {
  if (!m.document->HasItems()) return Refused(kWrongState);
  const std::int64_t amount = f.Number("importe");
  return Corrected(m, m.document->AddPerception(amount), f, amount);
}

// The running total is the third field; every field is a number.
Outcome Subtotal(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const Totals totals = document.Total();
  if (f.Letter("salida") == 'P') PrintSubtotal(m);
  const std::int64_t left = totals.total - document.Paid();
  const std::int64_t units = DivideRounded(document.units, kOfAThousandth);
  return Answered({Padded(document.lines, 5), Padded(units, 8), MoneyField(totals.total),
                   MoneyField(totals.iva), MoneyField(document.Paid()), MoneyField(totals.internal),
                   MoneyField(totals.perceptions), MoneyField(totals.net),
                   MoneyField(left > 0 ? left : 0)});
}

// Tickets and invoices have these under bytes of their own.

constexpr CommandRow SubtotalRow(std::uint8_t byte, std::string_view name, unsigned families,
                                 unsigned stages) {
  return {.byte = byte,
          .name = name,
          .word = "subtotal",
          .fields = {Choice("salida", "PN"), Text("texto", &TextLengths::description, kLooseText)},
          .families = families,
          .stages = stages,
          .printing = Printing::kUnlessAsking,
          .answers = {{.names = {"renglones", "unidades", "total", "IVA", "pagado", "internos",
                                 "percepciones", "neto", "falta pagar"}}},
          .run = Subtotal};
}

constexpr CommandRow AdjustRow(std::uint8_t byte, std::string_view name, unsigned families,
                               unsigned stages) {
  return {.byte = byte,
          .name = name,
          .word = "pago",
          .fields = {Text("descripción", &TextLengths::fiscal_text, kPaymentText),
                     Field("importe", FieldKind::kAmountOrEmpty), Choice("calificador", "DRTC")},
          .required = 3,
          .families = families,
          .stages = stages,
          .printing = Printing::kAlways,
          .answers = {{.field = "calificador", .letter = 'T', .names = {"falta pagar", "vuelto"}}},
          .run = AdjustPayOrCancel};
}

constexpr std::array kTotalRows{
    SubtotalRow('C', "Subtotal de tique", kTicketFamilies, kInTicket),
    SubtotalRow('c', "Subtotal de factura", kInvoiceFamilies, kInInvoice),
    AdjustRow('D', "Descuento, recargo o pago de tique", kTicketFamilies, kInTicket),
    AdjustRow('d', "Descuento, recargo o pago de factura", kInvoiceFamilies,
              kInInvoice | kBetweenSheets),
    CommandRow{.byte = 'f',
               .name = "Percepción",
               .word = "percepción",
               .fields = {Text("descripción", &TextLengths::fiscal_text, kPaymentText),
                          Choice("calificador", "IO"), Field("importe", FieldKind::kPerception),
                          Field("IVA", FieldKind::kRate)},
               .required = 4,
               .families = kInvoiceFamilies,
               .stages = When({Stage::kInvoiceItems}),
               .printing = Printing::kAlways,
               .run = Perception},
};

}  // namespace

std::span<const CommandRow> TotalsCommands() {
  return kTotalRows;
}

}  // namespace impresora
