#include "machine/power.hpp"

#include <array>

namespace impresora {
namespace {

// States of the mechanism and of its buffer; paper, cover, battery and damaged memories stay as
// they are.
constexpr std::array kPassing{&MachineFaults::offline, &MachineFaults::printer_failure,
                              &MachineFaults::buffer_full, &MachineFaults::slip_entry_ready,
                              &MachineFaults::slip_ready};

// Where a clock begins that lost its battery: the first of January of 2000.
constexpr std::int64_t kClocksFirstMoment = 946'684'800;

}  // namespace

void ForgetWithoutPower(Machine& m) {
  for (bool MachineFaults::*const fault : kPassing) m.faults.*fault = false;
  m.drawer_openings = 0;
  if (!m.faults.low_battery) return;
  m.clock_offset += kClocksFirstMoment - m.now;
  m.now = kClocksFirstMoment;
}

}  // namespace impresora
