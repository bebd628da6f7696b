#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "commands/fields.hpp"
#include "machine/machine.hpp"
#include "wire/packet.hpp"

namespace impresora {

// What a command came to: error bits of the fiscal word (none when it was carried out) and the
// data fields of its answer.
struct Outcome {
  std::uint16_t error = 0;
  std::vector<std::string> fields;
};

inline Outcome Refused(std::uint16_t bit) {
  return {.error = bit, .fields = {}};
}

// Whether a command needs paper and a working mechanism. Some commands print or only ask, as their
// first field says: "N" (do not print) and "Q" (query) need no paper. Questions print nothing and
// change nothing.
enum class Printing { kNever, kAlways, kUnlessAsking, kQuestion };

struct CommandRow {
  std::uint8_t byte;
  std::string_view name;
  std::span<const FieldRow> fields;
  std::size_t required;  // fields that may not be left out
  unsigned families;
  unsigned stages;
  Printing printing;
  Outcome (*run)(Machine&, const Fields&);
};

// Every command that some printer knows, by ascending byte.
std::span<const CommandRow> Commands();

// The row for a byte, whatever the family, or null.
const CommandRow* FindCommand(std::uint8_t byte);

// Whether it needs paper, as its first letter says; and whether it leaves the printer as it was.
bool NeedsPaper(const CommandRow& row, char first_letter);
bool OnlyAsks(const Packet& packet);

// What an open document will be known by; money and end are the caller's.
Receipt ReceiptOf(const Document& document);

// Fiscal documents.
Outcome OpenTicket(Machine& m, const Fields& f);
Outcome OpenInvoice(Machine& m, const Fields& f);
Outcome TicketItem(Machine& m, const Fields& f);
Outcome InvoiceItem(Machine& m, const Fields& f);
Outcome FiscalText(Machine& m, const Fields& f);
Outcome CloseTicket(Machine& m, const Fields& f);
Outcome CloseInvoice(Machine& m, const Fields& f);
Outcome TransportSheet(Machine& m, const Fields& f);

// Totals and payments.
Outcome AdjustPayOrCancel(Machine& m, const Fields& f);
Outcome Perception(Machine& m, const Fields& f);
Outcome Subtotal(Machine& m, const Fields& f);

// Reports.
Outcome DailyReport(Machine& m, const Fields& f);
Outcome ClosingsByNumber(Machine& m, const Fields& f);
Outcome ClosingsByDate(Machine& m, const Fields& f);

// Non-fiscal documents and the device itself.
Outcome OpenNonFiscal(Machine& m, const Fields& f);
Outcome NonFiscalText(Machine& m, const Fields& f);
Outcome CloseNonFiscal(Machine& m, const Fields& f);
Outcome QueryStatus(Machine& m, const Fields& f);
Outcome CutPaper(Machine& m, const Fields& f);
Outcome FeedPaper(Machine& m, const Fields& f);
Outcome SetClock(Machine& m, const Fields& f);
Outcome ReadClock(Machine& m, const Fields& f);
Outcome SetHeader(Machine& m, const Fields& f);
Outcome ReadHeader(Machine& m, const Fields& f);
Outcome OpenDrawer(Machine& m, const Fields& f);

}  // namespace impresora
