// Items sold, returned and voided.
#include <array>

#include "commands/families.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

std::uint16_t ErrorOf(Entry entry) {
  switch (entry) {
    case Entry::kRejected:
      return kInvalidField;
    case Entry::kTooLarge:
      return kOverflow;
    case Entry::kDone:
      break;
  }
  return 0;
}

struct Qualifier {
  char letter;
  std::string_view note;
  int sign;
  Entry (*enter)(Document&, Item&);
};

constexpr std::array<Qualifier, 3> kQualifiers{{
    {'M', "", 1, [](Document& d, Item& item) { return d.Sell(item); }},
    {'R', "DEVOLUCIÓN", -1, [](Document& d, Item& item) { return d.TakeBack(item); }},
    {'m', "ANULACIÓN", -1, [](Document& d, Item& item) { return d.TakeBack(item); }},
}};

const Qualifier& FindQualifier(char letter) {
  for (const Qualifier& row : kQualifiers) {
    if (row.letter == letter) return row;
  }
  return kQualifiers.front();
}

// Internal taxes come per unit, as the price does.
Outcome EnterItem(Machine& m, const Fields& f) {
  const std::int64_t quantity = f.Number("cantidad");
  if (quantity == 0 || f.Empty("descripción")) return Refused(kInvalidField);
  const auto amount = LineAmount(quantity, f.Number("precio"));
  const auto internal = LineAmount(quantity, f.Number("impuestos internos"));
  if (!amount || !internal) return Refused(kOverflow);
  Item item{.description = std::string(TrimRight(f.Text("descripción"))),
            .quantity = quantity,
            .price = f.Number("precio"),
            .rate = f.Number("IVA"),
            .amount = *amount,
            .internal = *internal,
            .internal_each = f.Number("impuestos internos")};
  const Qualifier& qualifier = FindQualifier(f.Letter("calificador"));
  const Entry entry = qualifier.enter(*m.document, item);
  if (entry != Entry::kDone) return Refused(ErrorOf(entry));
  PrintItem(m, item, qualifier.note, qualifier.sign);
  return {};
}

Outcome EnterInvoiceItem(Machine& m, const Fields& f) {
  Outcome outcome = EnterItem(m, f);
  if (outcome.error != 0) return outcome;
  for (const std::string_view extra : {"extra 1", "extra 2", "extra 3"}) {
    if (!Trim(f.Text(extra)).empty()) m.paper.HostText(f.Text(extra));
  }
  return outcome;
}

constexpr std::array kItemRows{
    CommandRow{
        .byte = 'B',
        .name = "Ítem de tique",
        .word = "ítem",
        .fields = {Text("descripción", &TextLengths::description),
                   Field("cantidad", FieldKind::kQuantity), Field("precio", FieldKind::kPrice),
                   Field("IVA", FieldKind::kRate), Choice("calificador", "MRm"),
                   Field("bultos", FieldKind::kFiller), Field("tasa de ajuste", FieldKind::kFiller),
                   Field("impuestos internos", FieldKind::kInternal)},
        .required = 8,
        .families = kTicketFamilies,
        .stages = When({Stage::kTicketItems}),
        .printing = Printing::kAlways,
        .run = EnterItem},
    CommandRow{
        .byte = 'b',
        .name = "Ítem de factura",
        .word = "ítem",
        .fields = {Text("descripción", &TextLengths::description),
                   Field("cantidad", FieldKind::kQuantity), Field("precio", FieldKind::kPrice),
                   Field("IVA", FieldKind::kRate), Choice("calificador", "MRm"),
                   Field("bultos", FieldKind::kFiller), Field("tasa de ajuste", FieldKind::kFiller),
                   Text("extra 1", &TextLengths::description),
                   Text("extra 2", &TextLengths::description),
                   Text("extra 3", &TextLengths::description),
                   Field("acrecentamiento", FieldKind::kFiller),
                   Field("impuestos internos", FieldKind::kInternal)},
        .required = 12,
        .families = kInvoiceFamilies,
        .stages = When({Stage::kInvoiceItems}),
        .printing = Printing::kAlways,
        .run = EnterInvoiceItem},
};

}  // namespace

std::span<const CommandRow> ItemCommands() {
  return kItemRows;
}

}  // namespace impresora
