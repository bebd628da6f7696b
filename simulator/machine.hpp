#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document.hpp"
#include "journal.hpp"
#include "paper.hpp"
#include "settings.hpp"

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

inline constexpr int kHeaderLines = 10;
inline constexpr int kClosingsWarning = 30;

// The state of the printer that its commands work on. `now` is the printer's own time while a
// command runs.
struct Machine {
  explicit Machine(Settings with) : settings(std::move(with)), paper(settings.columns()) {
    closings_left = settings.closings_left;
  }

  Stage stage() const;
  bool ClosingDue() const;
  bool MemoryFull() const { return closings_left <= 0; }
  std::uint16_t PrinterBits() const;
  std::uint16_t FiscalBits() const;

  Settings settings;
  Faults faults;
  Paper paper;

  std::int64_t clock_offset = 0;
  std::int64_t now = 0;

  std::optional<Document> document;
  bool non_fiscal_open = false;

  std::array<std::string, kHeaderLines> header;
  Numbering numbering;
  Day day;
  std::vector<DailyClosing> closings;
  int closings_left = 0;

  unsigned documents_closed = 0;
  unsigned drawer_openings = 0;
};

}  // namespace impresora
