// Fiscal documents: opened, with texts, on one sheet or several, closed.
#include <algorithm>
#include <array>
#include <utility>

#include "commands/families.hpp"
#include "fiscal/cuit.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

Outcome Open(Machine& m, const DocumentKind& kind, char letter, Customer customer, int copies) {
  if (m.MemoryFull() || m.MemoryDamaged() || m.ClosingDue()) return Refused(kWrongState);
  if (!m.day.opened) m.day.opened = m.now;
  const std::int64_t moved = kind.sales_sign < 0 ? m.day.credits.total : m.day.sales.total;
  DocumentContent content;
  content.letter = letter;
  content.number = m.numbering.Next(kind.series, letter);
  content.largest_total = std::min(kLargestTotal, kLargestDay - moved);
  content.customer = std::move(customer);
  content.copies = copies;
  m.document.emplace(kind, std::move(content));
  PrintDocumentHead(m);
  return {};
}

Customer ReadCustomer(const Fields& f) {
  Customer customer;
  customer.iva = f.Letter("IVA del cliente");
  customer.name = f.Text("nombre");
  customer.name_more = f.Text("nombre 2");
  customer.id_kind = f.Text("tipo de documento");
  customer.id_number = f.Text("documento");
  // The last two name the delivery notes that the invoice stands for.
  for (const auto* line : {"domicilio", "domicilio 2", "domicilio 3", "remito 1", "remito 2"}) {
    customer.address.emplace_back(f.Text(line));
  }
  return customer;
}

// What the customer has not paid counts as cash, and what was paid in excess goes back.
void SettlePayments(Machine& m) {
  Document& document = *m.document;
  if (!document.paying) PrintTotal(m);
  const std::int64_t left = document.Total().total - document.Paid();
  if (left > 0 && document.Kind().sales_sign != 0) {
    document.payments.push_back({"Efectivo", left});
    PrintPayment(m, document.payments.back());
  }
  if (left < 0) PrintChange(m, -left);
}

Outcome Close(Machine& m, std::string_view text) {
  const Document& document = *m.document;
  if (!document.HasItems()) return Refused(kWrongState);
  SettlePayments(m);
  if (!Trim(text).empty()) m.paper.HostText(text);
  PrintFoot(m);
  PrintCopies(m);
  const std::uint32_t number = document.number;
  const Totals totals = document.Total();
  Receipt receipt = ReceiptOf(document);
  receipt.total = totals.total;
  receipt.iva = totals.iva;
  m.day.Close(document.Kind(), totals);
  m.document.reset();
  m.Finish(std::move(receipt));
  return Answered({Padded(number, 8)});
}

Outcome OpenTicket(Machine& m, const Fields& /*f*/) {
  return Open(m, kTicketKind, 'B', {}, 1);
}

Outcome OpenInvoice(Machine& m, const Fields& f) {
  const DocumentKind* kind = FindKind(f.Letter("tipo"), m.settings.family);
  const char letter = f.Letter("letra");
  if (kind == nullptr || kind->letters.find(letter) == std::string_view::npos) {
    return Refused(kInvalidField);
  }
  Customer customer = ReadCustomer(f);
  if (m.settings.strict_cuit && !HasGoodCuit(customer)) return Refused(kInvalidField);
  const int copies = static_cast<int>(f.Number("copias"));
  return Open(m, *kind, letter, std::move(customer), copies);
}

Outcome FiscalText(Machine& m, const Fields& f) {
  m.paper.HostText(f.Text("texto"));
  return {};
}

Outcome CloseTicket(Machine& m, const Fields& f) {
  return Close(m, f.Text("texto"));
}

Outcome CloseInvoice(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const bool same =
      f.Letter("tipo") == document.Kind().code && f.Letter("letra") == document.letter;
  return same ? Close(m, f.Text("texto")) : Refused(kInvalidField);
}

// "Q" asks whether the form has room for another line; "D" ends a sheet or begins the next one.
Outcome TransportSheet(Machine& m, const Fields& f) {
  Document& document = *m.document;
  if (f.Letter("operación") == 'Q') {
    const bool room =
        !document.between_sheets && document.lines_on_sheet < m.settings.lines_per_form;
    return Answered({room ? "S" : "N"});
  }
  if (f.Empty("acción")) return Refused(kInvalidField);
  const bool opening = f.Letter("acción") == 'O';
  if (opening != document.between_sheets) return Refused(kWrongState);
  document.between_sheets = !opening;
  document.lines_on_sheet = 0;
  PrintTransport(m, !opening);
  return {};
}

constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr int kNoAddressText = 13;  // "SIN DOMICILIO"

constexpr std::array kDocumentRows{
    CommandRow{.byte = '@',
               .name = "Abrir tique",
               .word = "apertura",
               .fields = {Choice("impresión", "CG")},
               .families = kTicketFamilies,
               .stages = kWhenIdle,
               .printing = Printing::kAlways,
               .run = OpenTicket},
    CommandRow{
        .byte = '`',
        .name = "Abrir factura",
        .word = "apertura",
        .fields = {Choice("tipo", "FTDMNEC"), Choice("papel", kCapitals),
                   Choice("letra", kCapitals), Number("copias", 99),
                   Choice("formulario", kCapitals), Number("caracteres por pulgada", 20),
                   Text("IVA del emisor", 1), Choice("IVA del cliente", kCapitals),
                   Text("nombre", &TextLengths::customer), Text("nombre 2", &TextLengths::customer),
                   Text("tipo de documento", 6), Text("documento", 11), Text("bien de uso", 1),
                   Text("domicilio", &TextLengths::customer, kNoAddressText),
                   Text("domicilio 2", &TextLengths::customer),
                   Text("domicilio 3", &TextLengths::customer),
                   Text("remito 1", &TextLengths::customer),
                   Text("remito 2", &TextLengths::customer), Choice("almacenamiento", kCapitals)},
        .required = 19,
        .families = kInvoiceFamilies,
        .stages = kWhenIdle,
        .printing = Printing::kAlways,
        .run = OpenInvoice},
    CommandRow{.byte = 'A',
               .name = "Texto fiscal",
               .word = "texto",
               .fields = {Text("texto", &TextLengths::description, kLooseText)},
               .required = 1,
               .families = kAnyFamily,
               .stages = When({Stage::kTicketItems, Stage::kInvoiceItems}),
               .printing = Printing::kAlways,
               .run = FiscalText},
    CommandRow{.byte = '\\',
               .name = "Hoja de transporte",
               .fields = {Choice("operación", "QD"), Choice("objeto", "LP"), Choice("hoja", "T"),
                          Choice("acción", "TO")},
               .required = 2,
               .families = kOnForms,
               .stages = When({Stage::kInvoiceItems}) | kBetweenSheets,
               .printing = Printing::kUnlessAsking,
               .answers = {{.field = "operación", .letter = 'Q', .names = {"hay lugar"}}},
               .run = TransportSheet},
    CommandRow{
        .byte = 'E',
        .name = "Cerrar tique",
        .word = "cierre",
        .fields = {Choice("tipo", "T"), Text("texto", &TextLengths::description, kLooseText)},
        .required = 1,
        .families = kTicketFamilies,
        .stages = kInTicket,
        .printing = Printing::kAlways,
        .answers = {{.names = {"número"}}},
        .run = CloseTicket},
    CommandRow{.byte = 'e',
               .name = "Cerrar factura",
               .word = "cierre",
               .fields = {Choice("tipo", "FTDMNEC"), Choice("letra", kCapitals),
                          Text("texto", &TextLengths::description, kLooseText)},
               .required = 2,
               .families = kInvoiceFamilies,
               .stages = kInInvoice,
               .printing = Printing::kAlways,
               .answers = {{.names = {"número"}}},
               .run = CloseInvoice},
};

}  // namespace

std::span<const CommandRow> DocumentCommands() {
  return kDocumentRows;
}

}  // namespace impresora
