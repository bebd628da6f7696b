#include <algorithm>
#include <utility>

#include "commands/commands.hpp"
#include "fiscal/cuit.hpp"
#include "machine/status.hpp"
#include "paper/layout.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

enum OpenField : std::size_t {
  kKind = 0,
  kLetter = 2,
  kCopies = 3,
  kCustomerIva = 7,
  kName,
  kNameMore,
  kIdKind,
  kIdNumber,
  kFirstAddress = 13,
  kLastAddress = 17,  // the last two name the delivery notes the invoice stands for
};

// Where the fields that both item commands share stand.
enum ItemField : std::size_t { kDescription, kQuantity, kPrice, kRate, kQualifier };
constexpr std::size_t kTicketInternal = 7;
constexpr std::size_t kInvoiceFirstExtra = 7;
constexpr std::size_t kInvoiceLastExtra = 9;
constexpr std::size_t kInvoiceInternal = 11;

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
  customer.iva = f.Letter(kCustomerIva);
  customer.name = f.Text(kName);
  customer.name_more = f.Text(kNameMore);
  customer.id_kind = f.Text(kIdKind);
  customer.id_number = f.Text(kIdNumber);
  for (std::size_t line = kFirstAddress; line <= kLastAddress; ++line) {
    customer.address.emplace_back(f.Text(line));
  }
  return customer;
}

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
Outcome EnterItem(Machine& m, const Fields& f, std::size_t internal_field) {
  const std::int64_t quantity = f.Number(kQuantity);
  if (quantity == 0 || f.Empty(kDescription)) return Refused(kInvalidField);
  const auto amount = LineAmount(quantity, f.Number(kPrice));
  const auto internal = LineAmount(quantity, f.Number(internal_field));
  if (!amount || !internal) return Refused(kOverflow);
  Item item{.description = std::string(TrimRight(f.Text(kDescription))),
            .quantity = quantity,
            .price = f.Number(kPrice),
            .rate = f.Number(kRate),
            .amount = *amount,
            .internal = *internal,
            .internal_each = f.Number(internal_field)};
  const Qualifier& qualifier = FindQualifier(f.Letter(kQualifier));
  const Entry entry = qualifier.enter(*m.document, item);
  if (entry != Entry::kDone) return Refused(ErrorOf(entry));
  PrintItem(m, item, qualifier.note, qualifier.sign);
  return {};
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
  return {.error = 0, .fields = {Padded(number, 8)}};
}

}  // namespace

Receipt ReceiptOf(const Document& document) {
  Receipt receipt;
  receipt.kind = document.Kind().title;
  receipt.code = document.Kind().code;
  receipt.letter = document.letter;
  receipt.number = document.number;
  receipt.customer_id = document.customer.id_number;
  return receipt;
}

Outcome OpenTicket(Machine& m, const Fields& /*f*/) {
  return Open(m, kTicketKind, 'B', {}, 1);
}

Outcome OpenInvoice(Machine& m, const Fields& f) {
  const DocumentKind* kind = FindKind(f.Letter(kKind), m.settings.family);
  const char letter = f.Letter(kLetter);
  if (kind == nullptr || kind->letters.find(letter) == std::string_view::npos) {
    return Refused(kInvalidField);
  }
  Customer customer = ReadCustomer(f);
  if (m.settings.strict_cuit && !HasGoodCuit(customer)) return Refused(kInvalidField);
  const int copies = static_cast<int>(f.Number(kCopies));
  return Open(m, *kind, letter, std::move(customer), copies);
}

Outcome TicketItem(Machine& m, const Fields& f) {
  return EnterItem(m, f, kTicketInternal);
}

Outcome InvoiceItem(Machine& m, const Fields& f) {
  Outcome outcome = EnterItem(m, f, kInvoiceInternal);
  if (outcome.error != 0) return outcome;
  for (std::size_t extra = kInvoiceFirstExtra; extra <= kInvoiceLastExtra; ++extra) {
    if (!Trim(f.Text(extra)).empty()) m.paper.HostText(f.Text(extra));
  }
  return outcome;
}

Outcome FiscalText(Machine& m, const Fields& f) {
  m.paper.HostText(f.Text(0));
  return {};
}

Outcome CloseTicket(Machine& m, const Fields& f) {
  return Close(m, f.Text(1));
}

Outcome CloseInvoice(Machine& m, const Fields& f) {
  const Document& document = *m.document;
  const bool same = f.Letter(0) == document.Kind().code && f.Letter(1) == document.letter;
  return same ? Close(m, f.Text(2)) : Refused(kInvalidField);
}

// "Q" asks whether the form has room for another line; "D" ends a sheet or begins the next one.
Outcome TransportSheet(Machine& m, const Fields& f) {
  Document& document = *m.document;
  if (f.Letter(0) == 'Q') {
    const bool room =
        !document.between_sheets && document.lines_on_sheet < m.settings.lines_per_form;
    return {.error = 0, .fields = {room ? "S" : "N"}};
  }
  if (f.Letter(3) == '\0') return Refused(kInvalidField);
  const bool opening = f.Letter(3) == 'O';
  if (opening != document.between_sheets) return Refused(kWrongState);
  document.between_sheets = !opening;
  document.lines_on_sheet = 0;
  PrintTransport(m, !opening);
  return {};
}

}  // namespace impresora
