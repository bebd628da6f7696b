#pragma once

namespace impresora {

// Everything about the machine that can go wrong on its own.
struct MachineFaults {
  bool paper_out = false;
  bool journal_paper_out = false;
  bool receipt_paper_out = false;
  bool cover_open = false;
  bool offline = false;
  bool printer_failure = false;
  bool buffer_full = false;
  bool slip_entry_ready = false;
  bool slip_ready = false;
  bool fiscal_memory_check = false;
  bool work_memory_check = false;
  bool low_battery = false;
};

}  // namespace impresora
