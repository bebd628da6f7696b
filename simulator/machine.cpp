#include "machine.hpp"

#include <utility>

#include "calendar.hpp"
#include "status.hpp"

namespace impresora {
namespace {

struct FaultBit {
  bool Faults::*fault;
  std::uint16_t bit;
};

constexpr std::array<FaultBit, 9> kPrinterFaults{{
    {&Faults::printer_failure, kPrinterFailure},
    {&Faults::offline, kPrinterOffline},
    {&Faults::cover_open, kPrinterOffline},
    {&Faults::journal_paper_out, kJournalPaperOut},
    {&Faults::receipt_paper_out, kReceiptPaperOut},
    {&Faults::buffer_full, kBufferFull},
    {&Faults::slip_entry_ready, kSlipEntryReady},
    {&Faults::slip_ready, kSlipReady},
    {&Faults::paper_out, kPaperOut},
}};

constexpr std::array<FaultBit, 3> kFiscalFaults{{
    {&Faults::fiscal_memory_check, kFiscalMemoryCheck},
    {&Faults::work_memory_check, kWorkMemoryCheck},
    {&Faults::low_battery, kLowBattery},
}};

template <std::size_t N>
unsigned BitsOf(const Faults& faults, const std::array<FaultBit, N>& rows) {
  unsigned bits = 0;
  for (const FaultBit& row : rows) bits |= faults.*row.fault ? row.bit : 0U;
  return bits;
}

}  // namespace

Stage Machine::stage() const {
  if (non_fiscal_open) return Stage::kNonFiscal;
  if (!document) return Stage::kIdle;
  if (document->between_sheets) return Stage::kBetweenSheets;
  if (&document->kind() == &kTicketKind) {
    return document->paying ? Stage::kTicketPayments : Stage::kTicketItems;
  }
  return document->paying ? Stage::kInvoicePayments : Stage::kInvoiceItems;
}

bool Machine::ClosingDue() const {
  return day.opened && now - *day.opened >= kSecondsPerDay;
}

void Machine::Finish(Receipt receipt) {
  receipt.ordinal = ++finished;
  receipt.moment = now;
  receipts.push_back(std::move(receipt));
}

std::uint16_t Machine::PrinterBits() const {
  const unsigned bits = BitsOf(faults, kPrinterFaults);
  return static_cast<std::uint16_t>(faults.buffer_full ? bits : bits | kBufferEmpty);
}

std::uint16_t Machine::FiscalBits() const {
  unsigned bits = kCertified | kFiscalised | BitsOf(faults, kFiscalFaults);
  if (MemoryFull()) bits |= kMemoryFull;
  if (closings_left < kClosingsWarning) bits |= kMemoryNearlyFull;
  if (ClosingDue()) bits |= kClosingDue;
  if (document || non_fiscal_open) bits |= kDocumentOpen;
  if (document && &document->kind() != &kTicketKind) bits |= kInvoiceOpen;
  return static_cast<std::uint16_t>(bits);
}

}  // namespace impresora
