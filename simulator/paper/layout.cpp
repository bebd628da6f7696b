#include "paper/layout.hpp"

#include <string>

#include "fiscal/calendar.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

struct IvaName {
  char letter;
  std::string_view words;
};

constexpr std::array<IvaName, 8> kIvaNames{{
    {'I', "IVA Responsable Inscripto"},
    {'R', "IVA Responsable no Inscripto"},
    {'N', "No Responsable"},
    {'E', "IVA Exento"},
    {'M', "Responsable Monotributo"},
    {'F', "A Consumidor Final"},
    {'S', "Sujeto no Categorizado"},
    {'C', "A Consumidor Final"},
}};

constexpr std::array<IvaName, 5> kOwnerIvaNames{{
    {'I', "IVA RESPONSABLE INSCRIPTO"},
    {'R', "IVA RESPONSABLE NO INSCRIPTO"},
    {'N', "NO RESPONSABLE"},
    {'E', "IVA EXENTO"},
    {'M', "RESPONSABLE MONOTRIBUTO"},
}};

std::string_view OwnerIvaWords(char letter) {
  for (const IvaName& name : kOwnerIvaNames) {
    if (name.letter == letter) return name.words;
  }
  return "OTRA CONDICIÓN ANTE EL IVA";
}

std::string_view IvaWords(char letter) {
  for (const IvaName& name : kIvaNames) {
    if (name.letter == letter) return name.words;
  }
  return "Otra condición ante el IVA";
}

// In double width a text has its lines to itself, below the words before it.
void PrintHostLine(Machine& m, std::string_view before, std::string_view bytes) {
  if (IsDoubleWidth(bytes)) {
    if (!Trim(before).empty()) m.paper.Line(before);
    return m.paper.HostText(bytes);
  }
  const std::string text = Utf8FromHost(Trim(bytes));
  if (!text.empty()) m.paper.Line(std::string(before) + text);
}

void PrintCustomer(Machine& m, const Customer& customer) {
  PrintHostLine(m, "Señor/es: ", customer.name);
  PrintHostLine(m, "          ", customer.name_more);
  const std::string_view id_kind = Trim(customer.id_kind);
  const std::string label = id_kind.empty() ? "Documento" : Utf8FromHost(id_kind);
  PrintHostLine(m, label + ": ", customer.id_number);
  for (const std::string& line : customer.address) PrintHostLine(m, "", line);
  m.paper.Line(IvaWords(customer.iva));
  m.paper.Rule('-');
}

std::string PointOfSale(const Machine& m) {
  return "P.V. Nº " + Padded(m.settings.point_of_sale, 4);
}

void PrintMoment(Machine& m) {
  m.paper.Split("Fecha " + PrintedDate(m.now), "Hora " + PrintedTime(m.now));
}

std::string Title(const Document& document) {
  std::string title(document.Kind().title);
  if (&document.Kind() != &kTicketKind) title.append(" \"").append(1, document.letter) += '"';
  return title;
}

std::string Rate(std::int64_t rate) {
  return FormatDecimal(rate, kRateDecimals);
}

}  // namespace

void PrintLetterhead(Machine& m) {
  m.paper.Center(kNoFiscalValue);
  for (const std::string& line : m.header) {
    if (!Trim(line).empty()) m.paper.CenterHostText(line);
  }
  m.paper.Line(m.settings.owner, Paper::Style::kStrongCentred);
  m.paper.Center("C.U.I.T. Nº " + m.settings.owner_cuit);
  m.paper.Center(OwnerIvaWords(m.settings.owner_iva));
  m.paper.Rule('=');
}

void PrintDocumentHead(Machine& m) {
  const Document& document = *m.document;
  PrintLetterhead(m);
  m.paper.Line(Title(document), Paper::Style::kStrongCentred);
  m.paper.Split(PointOfSale(m), "Nº " + Padded(document.number, 8));
  PrintMoment(m);
  m.paper.Rule('-');
  if (&document.Kind() == &kTicketKind) {
    m.paper.Line("A CONSUMIDOR FINAL");
    m.paper.Rule('-');
  } else {
    PrintCustomer(m, document.customer);
  }
  m.paper.Line("CANT. x PRECIO UNIT. (% IVA)");
  m.paper.Split("DESCRIPCIÓN", "IMPORTE");
  m.paper.Rule('-');
}

void PrintItem(Machine& m, const Item& item, std::string_view note, int sign) {
  if (!note.empty()) m.paper.Line(note);
  m.paper.Line(FormatQuantity(item.quantity) + " x " + FormatPrice(item.price) + " (" +
               Rate(item.rate) + ")");
  m.paper.SplitHostText(item.description, FormatMoney(sign * item.amount));
}

void PrintCorrection(Machine& m, std::string_view text, std::int64_t amount) {
  m.paper.SplitHostText(text, FormatMoney(amount));
}

void PrintSubtotal(Machine& m) {
  m.paper.Split("Subtotal", FormatMoney(m.document->Total().total));
}

void PrintTotal(Machine& m) {
  const Totals totals = m.document->Total();
  m.paper.Rule('-');
  if (m.document->NetPrices()) {
    for (const RateTotal& row : totals.rates) {
      m.paper.Split("Neto gravado al " + Rate(row.rate) + "%", FormatMoney(row.net));
      m.paper.Split("IVA " + Rate(row.rate) + "%", FormatMoney(row.iva));
    }
    if (totals.internal != 0) m.paper.Split("Impuestos internos", FormatMoney(totals.internal));
    m.paper.Rule('-');
  }
  m.paper.Split("T O T A L", "$ " + FormatMoney(totals.total), Paper::Style::kStrong);
  m.paper.Feed(1);
}

void PrintPayment(Machine& m, const Payment& payment) {
  if (m.document->payments.size() == 1) m.paper.Line("RECIBI(MOS)");
  m.paper.SplitHostText(payment.description, FormatMoney(payment.amount));
}

void PrintChange(Machine& m, std::int64_t change) {
  m.paper.Split("Su vuelto", FormatMoney(change));
}

void PrintFoot(Machine& m, Paper::Style style) {
  m.paper.Rule('=');
  for (const std::string& line : m.trailer) {
    if (!Trim(line).empty()) m.paper.CenterHostText(line);
  }
  m.paper.Split(m.settings.model, PrintedTime(m.now), style);
  m.paper.Center(kNoFiscalValue);
  m.paper.Feed(3);
}

void PrintCancelled(Machine& m) {
  m.paper.Feed(1);
  m.paper.Line("*** COMPROBANTE CANCELADO ***", Paper::Style::kStrongCentred);
  PrintFoot(m, Paper::Style::kPlain);
}

// The figure carried over is what the lines of the document add up to as they are printed.
void PrintTransport(Machine& m, bool closing) {
  const Totals totals = m.document->Total();
  if (!closing) PrintDocumentHead(m);
  m.paper.Split(closing ? "Transporte a la hoja siguiente" : "Transporte de la hoja anterior",
                FormatMoney(totals.subtotal + totals.perceptions));
  if (closing) PrintFoot(m, Paper::Style::kPlain);
}

void PrintPowerCut(Machine& m) {
  m.paper.Center("*** CORTE DE ENERGÍA ***");
}

void PrintNonFiscalHead(Machine& m) {
  PrintLetterhead(m);
  m.paper.Line("DOCUMENTO NO FISCAL", Paper::Style::kStrongCentred);
  PrintMoment(m);
  m.paper.Rule('-');
}

void PrintNonFiscalFoot(Machine& m) {
  m.paper.Rule('-');
  m.paper.Center("NO FISCAL");
  PrintFoot(m, Paper::Style::kPlain);
}

}  // namespace impresora
