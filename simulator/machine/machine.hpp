#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fiscal/document.hpp"
#include "fiscal/journal.hpp"
#include "machine/faults.hpp"
#include "machine/roll.hpp"
#include "machine/settings.hpp"

namespace impresora {

// Stages that decide which commands are accepted; a command's row names its own as a sum of bits.
enum class Stage : unsigned {
  kIdle = 0x01,
  kTicketItems = 0x02,
  kTicketPayments = 0x04,
  kInvoiceItems = 0x08,
  kInvoicePayments = 0x10,
  kBetweenSheets = 0x20,
  kNonFiscal = 0x40,
};

inline constexpr int kHeaderLines = 10;   // lines 1 to 10, above every document
inline constexpr int kTrailerLines = 10;  // lines 11 to 20, below it
inline constexpr int kClosingsWarning = 30;

// Largest sum of a day that its reports have room for: ten integer digits.
inline constexpr std::int64_t kLargestDay = 999'999'999'999;

inline constexpr std::int64_t kEndlessPaper = -1;

// What outlives a power cut, closings apart.
struct Books {
  std::optional<Document> document;
  bool non_fiscal_open = false;
  std::vector<PaperLine> printed;  // of the open document, fiscal or not

  std::array<std::string, kHeaderLines> header;
  std::array<std::string, kTrailerLines> trailer;
  Numbering numbering;
  Day day;
  int closings_left = 0;
  std::int64_t clock_offset = 0;
  unsigned finished = 0;  // ordinal of the last receipt

  bool operator==(const Books&) const = default;
};

// Bits of a status word that show something else than how the machine is.
struct ForcedBits {
  std::uint16_t on = 0;
  std::uint16_t off = 0;
};

// The state of the printer that its commands work on. `now` is the printer's own time while a
// command runs.
struct Machine : Books {
  explicit Machine(Settings with) : settings(std::move(with)), paper(settings.PaperColumns()) {
    closings_left = settings.closings_left;
  }

  Stage GetStage() const;
  bool ClosingDue() const;
  bool MemoryFull() const { return closings_left <= 0; }
  bool MemoryDamaged() const { return faults.fiscal_memory_check || faults.work_memory_check; }
  std::uint16_t PrinterBits() const;
  std::uint16_t FiscalBits() const;

  // Counts a document as finished; the rest of the receipt is the caller's.
  void Finish(Receipt receipt);

  Settings settings;
  MachineFaults faults;
  Paper paper;

  ForcedBits forced_printer;
  ForcedBits forced_fiscal;
  std::int64_t paper_left = kEndlessPaper;  // in lines
  std::size_t command_paper = 0;            // where on the waiting paper the command began to print

  std::int64_t now = 0;
  std::vector<DailyClosing> closings;
  std::vector<Receipt> receipts;  // what the command that runs has finished

  unsigned drawer_openings = 0;  // since the printer was switched on
};

}  // namespace impresora
