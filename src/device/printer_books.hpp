#pragma once

#include <cstdint>
#include <string>

namespace kestra {

struct Ledger;
struct Library;

// Questions that a host may ask at any time: they print nothing, show nothing, and wait for one answer. The
// call's report says why there is none.

// Documents as Kestra_DocumentoAbierto and Kestra_Numeracion number them.
enum class DocumentKind : std::int32_t {
  kNone = 0,
  kInvoice = 1,
  kTicket = 2,
  kDebitNote = 3,
  kCreditNote = 4,
  kDeliveryNote = 5,
  kVoucher = 6,
  kNonFiscal = 7,
  kOther = 15,      // open, and not by this driver
  kNotKnown = 255,  // whether one is open
};

// How far it is; 256 times as much is added to its kind.
enum class DocumentStage : std::int32_t { kNotKnown = 0, kEmpty = 1, kWithLines = 2, kPaying = 3 };

// Numbers that the printer keeps beside those of documents.
enum class BookNumber : std::int32_t { kDailyClosings = 16, kCancelled = 17, kNonFiscal = 18 };

// The status words, and what the document in hand has come to. 0: answered.
std::int32_t AskStatus(Library& library);

// The open document as far as it is known now.
std::int32_t OpenDocument(const Ledger& ledger);

// The running total, with its point; empty when it cannot be had.
std::string AskTotal(Library& library);

// The last number of a kind of document, or of what else is numbered, in eight digits; empty likewise.
std::string AskNumber(Library& library, std::int32_t kind, std::int32_t letter);

// Finds out what became of the pending command; the outcome's number. The number of a document that it closed
// is kept.
std::int32_t Settle(Library& library);

// Drops it. 1: there was one.
std::int32_t Forget(Library& library);

}  // namespace kestra
