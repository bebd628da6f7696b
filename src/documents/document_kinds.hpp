#pragma once

#include <array>
#include <initializer_list>
#include <string_view>

#include "operation/operation.hpp"

namespace kestra {

constexpr std::string_view kFormFamily = "FC";           // invoices on forms
constexpr std::string_view kTicketInvoiceFamily = "TF";  // invoices on roll paper
constexpr std::string_view kTicketFamily = "TQ";         // tickets only

// The letter of a document whose opening or closing has none.
constexpr std::string_view kNoLetter = "";

// A fiscal document that a family can issue, and what its opening tells the printer. Where parallel
// kinds differ they do so on purpose.
struct FiscalKind {
  std::string_view family;
  std::string_view kind;
  std::string_view log;           // log line of the opening
  std::string_view at_opening;    // kind letter at the opening; kNoLetter: nothing is sent
  std::string_view at_closing;    // kind letter at the closing
  bool copies_from_host = false;  // else "1"
  std::string_view field_5 = "F";
  std::string_view field_13 = "N";
};

// Kept as is: a debit note of "TF" can be closed but not opened.
inline constexpr std::array kFiscalKinds = {
    FiscalKind{.family = "FC",
               .kind = "FC",
               .log = " - Comando : EP_AbrirComprobanteFiscal(FC/FC)",
               .at_opening = "F",
               .at_closing = "F",
               .copies_from_host = true},
    FiscalKind{.family = "FC",
               .kind = "ND",
               .log = " - Comando : EP_AbrirComprobanteFiscal(FC/ND)",
               .at_opening = "D",
               .at_closing = "D"},
    FiscalKind{.family = "TF",
               .kind = "FC",
               .log = " - Comando : EP_AbrirComprobanteFiscal(TF/FC)",
               .at_opening = "T",
               .at_closing = "T"},
    FiscalKind{.family = "TF",
               .kind = "NC",
               .log = " - Comando : EP_AbrirComprobanteFiscal(TF/NC)",
               .at_opening = "M",
               .at_closing = "M",
               .field_5 = "P",
               .field_13 = ""},
    FiscalKind{.family = "TF",
               .kind = "ND",
               .log = " - Comando : EP_AbrirComprobanteFiscal(TF/ND)",
               .at_opening = kNoLetter,
               .at_closing = "D"},
    FiscalKind{.family = "TQ",
               .kind = "FC",
               .log = " - Comando : EP_AbrirComprobanteFiscal(TQ/FC)",
               .at_opening = "C",
               .at_closing = "T"},
};

// The row of a family and type in a table of documents; null for a pair that it has not.
template <typename Table>
constexpr const typename Table::value_type* FindRow(const Table& table, std::string_view family,
                                                    std::string_view kind) {
  for (const auto& row : table) {
    if (row.family == family && row.kind == kind) return &row;
  }
  return nullptr;
}

constexpr const FiscalKind* FindFiscalKind(std::string_view family, std::string_view kind) {
  return FindRow(kFiscalKinds, family, kind);
}

// The bytes by which the families call the same command.
struct CommandBytes {
  char invoice;  // "FC" and "TF"
  char ticket;   // "TQ"
};
constexpr CommandBytes kOpen{'`', '@'};
constexpr CommandBytes kItem{'b', 'B'};
constexpr CommandBytes kTotals{'d', 'D'};  // discount, surcharge, payment, cancel
constexpr CommandBytes kSubtotal{'c', 'C'};
constexpr CommandBytes kClose{'e', 'E'};

// The byte for a family, or 0 for a family that the printers do not have.
constexpr char ByteOfFamily(std::string_view family, CommandBytes bytes) {
  if (family == kFormFamily || family == kTicketInvoiceFamily) return bytes.invoice;
  return family == kTicketFamily ? bytes.ticket : '\0';
}

// The closing command, which fiscal and homologated documents share.
Command ClosingCommand(std::string_view family, std::string_view kind_letter,
                       std::string_view letter);

// The totals' command with these fields; the previous one for a family that the printers do not have.
Outgoing TotalsCommand(const State& state, std::initializer_list<std::string_view> fields);

}  // namespace kestra
