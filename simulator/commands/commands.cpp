#include "commands/commands.hpp"

#include <algorithm>
#include <array>

namespace impresora {
namespace {

using enum FieldKind;

// A text whose longest the printer is set up with; `least` bytes always fit, for what hosts put
// there on their own.
constexpr FieldRow Text(std::string_view name, int TextLengths::*length, int least = 0) {
  return {.name = name, .kind = kText, .limit = least, .length = length};
}

constexpr int TextLengths::*kDescription = &TextLengths::description;
constexpr int TextLengths::*kFiscalText = &TextLengths::fiscal_text;
constexpr int TextLengths::*kHeader = &TextLengths::header;
constexpr int TextLengths::*kNonFiscalText = &TextLengths::non_fiscal_text;
constexpr int TextLengths::*kCustomer = &TextLengths::customer;
constexpr int kLooseText = 26;      // a line of text, last words
constexpr int kPaymentText = 20;    // payments, perceptions, roundings
constexpr int kNoAddressText = 13;  // "SIN DOMICILIO"

constexpr std::string_view kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

constexpr std::array kStatusFields{FieldRow{"consulta", kChoice, 0, "ACDNP"}};
constexpr std::array kReportFields{FieldRow{"tipo", kChoice, 0, "XZ"},
                                   FieldRow{"salida", kChoice, 0, "PN"}};
constexpr std::array kByDateFields{FieldRow{"desde", kDate}, FieldRow{"hasta", kDate},
                                   FieldRow{"detalle", kChoice, 0, "DT"}};
constexpr std::array kByNumberFields{FieldRow{"desde", kNumber, 99'999},
                                     FieldRow{"hasta", kNumber, 99'999},
                                     FieldRow{"detalle", kChoice, 0, "DT"}};
constexpr std::array kOpenTicketFields{FieldRow{"impresión", kChoice, 0, "CG"}};
constexpr std::array kFiscalTextFields{Text("texto", kDescription, kLooseText)};
constexpr std::array kTicketItemFields{
    Text("descripción", kDescription),
    FieldRow{"cantidad", kQuantity},
    FieldRow{"precio", kPrice},
    FieldRow{"IVA", kRate},
    FieldRow{"calificador", kChoice, 0, "MRm"},
    FieldRow{"bultos", kFiller},
    FieldRow{"tasa de ajuste", kFiller},
    FieldRow{"impuestos internos", kInternal},
};
constexpr std::array kTicketSubtotalFields{FieldRow{"salida", kChoice, 0, "PN"},
                                           Text("texto", kDescription, kLooseText)};
constexpr std::array kAdjustFields{Text("descripción", kFiscalText, kPaymentText),
                                   FieldRow{"importe", kAmountOrEmpty},
                                   FieldRow{"calificador", kChoice, 0, "DRTC"}};
constexpr std::array kCloseTicketFields{FieldRow{"tipo", kChoice, 0, "T"},
                                        Text("texto", kDescription, kLooseText)};
constexpr std::array kNonFiscalTextFields{Text("texto", kNonFiscalText)};
constexpr std::array kCloseNonFiscalFields{FieldRow{"tipo", kChoice, 0, "T"}};
constexpr std::array kFeedFields{FieldRow{"líneas", kNumber, 99}};
constexpr std::array kSetClockFields{FieldRow{"fecha", kDate}, FieldRow{"hora", kTime}};
constexpr std::array kSheetFields{
    FieldRow{"operación", kChoice, 0, "QD"}, FieldRow{"objeto", kChoice, 0, "LP"},
    FieldRow{"hoja", kChoice, 0, "T"}, FieldRow{"acción", kChoice, 0, "TO"}};
constexpr std::array kSetHeaderFields{FieldRow{"línea", kNumber, kHeaderLines + kTrailerLines},
                                      Text("texto", kHeader)};
constexpr std::array kReadHeaderFields{FieldRow{"línea", kNumber, kHeaderLines + kTrailerLines}};
constexpr std::array kOpenInvoiceFields{
    FieldRow{"tipo", kChoice, 0, "FTDMNEC"},
    FieldRow{"papel", kChoice, 0, kCapitals},
    FieldRow{"letra", kChoice, 0, kCapitals},
    FieldRow{"copias", kNumber, 99},
    FieldRow{"formulario", kChoice, 0, kCapitals},
    FieldRow{"caracteres por pulgada", kNumber, 20},
    FieldRow{"IVA del emisor", kText, 1},
    FieldRow{"IVA del cliente", kChoice, 0, kCapitals},
    Text("nombre", kCustomer),
    Text("nombre 2", kCustomer),
    FieldRow{"tipo de documento", kText, 6},
    FieldRow{"documento", kText, 11},
    FieldRow{"bien de uso", kText, 1},
    Text("domicilio", kCustomer, kNoAddressText),
    Text("domicilio 2", kCustomer),
    Text("domicilio 3", kCustomer),
    Text("remito 1", kCustomer),
    Text("remito 2", kCustomer),
    FieldRow{"almacenamiento", kChoice, 0, kCapitals},
};
constexpr std::array kInvoiceItemFields{
    Text("descripción", kDescription),
    FieldRow{"cantidad", kQuantity},
    FieldRow{"precio", kPrice},
    FieldRow{"IVA", kRate},
    FieldRow{"calificador", kChoice, 0, "MRm"},
    FieldRow{"bultos", kFiller},
    FieldRow{"tasa de ajuste", kFiller},
    Text("extra 1", kDescription),
    Text("extra 2", kDescription),
    Text("extra 3", kDescription),
    FieldRow{"acrecentamiento", kFiller},
    FieldRow{"impuestos internos", kInternal},
};
constexpr std::array kCloseInvoiceFields{FieldRow{"tipo", kChoice, 0, "FTDMNEC"},
                                         FieldRow{"letra", kChoice, 0, kCapitals},
                                         Text("texto", kDescription, kLooseText)};
constexpr std::array kPerceptionFields{Text("descripción", kFiscalText, kPaymentText),
                                       FieldRow{"calificador", kChoice, 0, "IO"},
                                       FieldRow{"importe", kPerception}, FieldRow{"IVA", kRate}};

constexpr unsigned Bit(Stage stage) {
  return static_cast<unsigned>(stage);
}

constexpr unsigned kIdle = Bit(Stage::kIdle);
constexpr unsigned kNonFiscal = Bit(Stage::kNonFiscal);
constexpr unsigned kSheets = Bit(Stage::kBetweenSheets);
constexpr unsigned kTicketItems = Bit(Stage::kTicketItems);
constexpr unsigned kTicket = kTicketItems | Bit(Stage::kTicketPayments);
constexpr unsigned kInvoiceItems = Bit(Stage::kInvoiceItems);
constexpr unsigned kInvoice = kInvoiceItems | Bit(Stage::kInvoicePayments);
constexpr unsigned kAlways = kIdle | kTicket | kInvoice | kSheets | kNonFiscal;

constexpr unsigned kAll = kOnTickets | kOnRolls | kOnForms;
constexpr unsigned kTickets = kOnTickets | kOnRolls;
constexpr unsigned kInvoices = kOnRolls | kOnForms;

constexpr Printing kNo = Printing::kNever;
constexpr Printing kYes = Printing::kAlways;
constexpr Printing kAsks = Printing::kUnlessAsking;
constexpr Printing kQuestion = Printing::kQuestion;

constexpr std::span<const FieldRow> kNone{};

// clang-format off
// byte, name, fields, required, families, stages, printing, what it does
constexpr std::array<CommandRow, 28> kCommands{{
    {'*', "Consulta de estado", kStatusFields, 0, kAll, kAlways, kQuestion, QueryStatus},
    {'9', "Cierre de jornada", kReportFields, 1, kAll, kIdle, kYes, DailyReport},
    {':', "Cierres por fecha", kByDateFields, 2, kAll, kIdle, kYes, ClosingsByDate},
    {';', "Cierres por número", kByNumberFields, 2, kAll, kIdle, kYes, ClosingsByNumber},
    {'@', "Abrir tique", kOpenTicketFields, 0, kTickets, kIdle, kYes, OpenTicket},
    {'A', "Texto fiscal", kFiscalTextFields, 1, kAll, kTicketItems | kInvoiceItems, kYes,
     FiscalText},
    {'B', "Ítem de tique", kTicketItemFields, 8, kTickets, kTicketItems, kYes, TicketItem},
    {'C', "Subtotal de tique", kTicketSubtotalFields, 0, kTickets, kTicket, kAsks, Subtotal},
    {'D', "Descuento, recargo o pago de tique", kAdjustFields, 3, kTickets, kTicket, kYes,
     AdjustPayOrCancel},
    {'E', "Cerrar tique", kCloseTicketFields, 1, kTickets, kTicket, kYes, CloseTicket},
    {'H', "Abrir no fiscal", kNone, 0, kAll, kIdle, kYes, OpenNonFiscal},
    {'I', "Texto no fiscal", kNonFiscalTextFields, 1, kAll, kNonFiscal, kYes, NonFiscalText},
    {'J', "Cerrar no fiscal", kCloseNonFiscalFields, 0, kAll, kNonFiscal, kYes, CloseNonFiscal},
    {'K', "Cortar papel", kNone, 0, kAll, kIdle | kNonFiscal, kYes, CutPaper},
    {'R', "Avanzar papel", kFeedFields, 1, kAll, kAlways, kYes, FeedPaper},
    {'X', "Fijar fecha y hora", kSetClockFields, 2, kAll, kIdle, kNo, SetClock},
    {'Y', "Leer fecha y hora", kNone, 0, kAll, kAlways, kQuestion, ReadClock},
    {'\\', "Hoja de transporte", kSheetFields, 2, kOnForms, kInvoiceItems | kSheets, kAsks,
     TransportSheet},
    {']', "Fijar encabezado", kSetHeaderFields, 2, kAll, kIdle, kNo, SetHeader},
    {'^', "Leer encabezado", kReadHeaderFields, 1, kAll, kAlways, kQuestion, ReadHeader},
    {'`', "Abrir factura", kOpenInvoiceFields, 19, kInvoices, kIdle, kYes, OpenInvoice},
    {'b', "Ítem de factura", kInvoiceItemFields, 12, kInvoices, kInvoiceItems, kYes, InvoiceItem},
    {'c', "Subtotal de factura", kTicketSubtotalFields, 0, kInvoices, kInvoice, kAsks, Subtotal},
    {'d', "Descuento, recargo o pago de factura", kAdjustFields, 3, kInvoices,
     kInvoice | kSheets, kYes, AdjustPayOrCancel},
    {'e', "Cerrar factura", kCloseInvoiceFields, 2, kInvoices, kInvoice, kYes, CloseInvoice},
    {'f', "Percepción", kPerceptionFields, 4, kInvoices, kInvoiceItems, kYes, Perception},
    {'{', "Abrir cajón", kNone, 0, kAll, kAlways, kNo, OpenDrawer},
    {'|', "Abrir cajón 2", kNone, 0, kAll, kAlways, kNo, OpenDrawer},
}};
// clang-format on

constexpr bool Ascending() {
  for (std::size_t i = 1; i < kCommands.size(); ++i) {
    if (kCommands[i - 1].byte >= kCommands[i].byte) return false;
  }
  return true;
}
static_assert(Ascending(), "the search by byte needs the rows in order, without repetitions");

}  // namespace

std::span<const CommandRow> Commands() {
  return kCommands;
}

const CommandRow* FindCommand(std::uint8_t byte) {
  const auto before = [](const CommandRow& row, std::uint8_t wanted) { return row.byte < wanted; };
  const auto row = std::lower_bound(kCommands.begin(), kCommands.end(), byte, before);
  return row != kCommands.end() && row->byte == byte ? &*row : nullptr;
}

bool NeedsPaper(const CommandRow& row, char first_letter) {
  if (row.printing == Printing::kUnlessAsking) return first_letter != 'N' && first_letter != 'Q';
  return row.printing == Printing::kAlways;
}

bool OnlyAsks(const Packet& packet) {
  const CommandRow* const row = FindCommand(packet.command);
  if (row == nullptr) return false;
  if (row->printing != Printing::kUnlessAsking) return row->printing == Printing::kQuestion;
  const std::string_view first = packet.fields.empty() ? std::string_view() : packet.fields[0];
  return !NeedsPaper(*row, first.empty() ? '\0' : first.front());
}

}  // namespace impresora
