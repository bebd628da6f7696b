#include "machine/machine.hpp"

#include <utility>

#include "fiscal/calendar.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

struct FaultBit {
  bool MachineFaults::*fault;
  std::uint16_t bit;
};

constexpr std::array<FaultBit, 9> kPrinterFaults{{
    {&MachineFaults::printer_failure, kPrinterFailure},
    {&MachineFaults::offline, kPrinterOffline},
    {&MachineFaults::cover_open, kPrinterOffline},
    {&MachineFaults::journal_paper_out, kJournalPaperOut},
    {&MachineFaults::receipt_paper_out, kReceiptPaperOut},
    {&MachineFaults::buffer_full, kBufferFull},
    {&MachineFaults::slip_entry_ready, kSlipEntryReady},
    {&MachineFaults::slip_ready, kSlipReady},
    {&MachineFaults::paper_out, kPaperOut},
}};

constexpr std::array<FaultBit, 3> kFiscalFaults{{
    {&MachineFaults::fiscal_memory_check, kFiscalMemoryCheck},
    {&MachineFaults::work_memory_check, kWorkMemoryCheck},
    {&MachineFaults::low_battery, kLowBattery},
}};

template <std::size_t N>
unsigned BitsOf(const MachineFaults& faults, const std::array<FaultBit, N>& rows) {
  unsigned bits = 0;
  for (const FaultBit& row : rows) bits |= faults.*row.fault ? row.bit : 0U;
  return bits;
}

}  // namespace

Stage Machine::GetStage() const {
  if (non_fiscal_open) return Stage::kNonFiscal;
  if (!document) return Stage::kIdle;
  if (document->between_sheets) return Stage::kBetweenSheets;
  if (&document->Kind() == &kTicketKind) {
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
  if (document && &document->Kind() != &kTicketKind) bits |= kInvoiceOpen;
  return static_cast<std::uint16_t>(bits);
}

}  // namespace impresora
