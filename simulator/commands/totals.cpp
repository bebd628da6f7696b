#include <utility>

#include "commands/commands.hpp"
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
  PrintCorrection(m, f.Text(0), amount);
  return {};
}

Outcome Adjust(Machine& m, const Fields& f, int sign) {
  const std::int64_t amount = sign * f.Number(1);
  return Corrected(m, m.document->Adjust(amount), f, amount);
}

Outcome Pay(Machine& m, const Fields& f) {
  Document& document = *m.document;
  if (document.Pay({std::string(f.Text(0)), f.Number(1)}) != Entry::kDone) {
    return Refused(kOverflow);
  }
  if (document.payments.size() == 1) PrintTotal(m);
  PrintPayment(m, document.payments.back());
  const std::int64_t left = document.Total().total - document.Paid();
  return {.error = 0,
          .fields = {MoneyField(left > 0 ? left : 0), MoneyField(left < 0 ? -left : 0)}};
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

}  // namespace

Outcome AdjustPayOrCancel(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const char qualifier = f.Letter(2);
  if (qualifier == 'C') return Cancel(m);
  if (!document.HasItems() || document.between_sheets) return Refused(kWrongState);
  if (f.Empty(1)) return Refused(kInvalidField);
  if (qualifier == 'T') return Pay(m, f);
  if (document.paying) return Refused(kWrongState);
  return Adjust(m, f, qualifier == 'D' ? -1 : 1);
}

Outcome Perception(Machine& m, const Fields& f) {
  if (!m.document->HasItems()) return Refused(kWrongState);
  const std::int64_t amount = f.Number(2);
  return Corrected(m, m.document->AddPerception(amount), f, amount);
}

// The running total is the third field; every field is a number.
Outcome Subtotal(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const Totals totals = document.Total();
  if (f.Letter(0) == 'P') PrintSubtotal(m);
  const std::int64_t left = totals.total - document.Paid();
  const std::int64_t units = DivideRounded(document.units, kOfAThousandth);
  return {.error = 0,
          .fields = {Padded(document.lines, 5), Padded(units, 8), MoneyField(totals.total),
                     MoneyField(totals.iva), MoneyField(document.Paid()),
                     MoneyField(totals.internal), MoneyField(totals.perceptions),
                     MoneyField(totals.net), MoneyField(left > 0 ? left : 0)}};
}

}  // namespace impresora
