#include "campaigns/torture/tally.hpp"

#include <iomanip>
#include <ostream>

namespace kestra::torture {

void Print(const Tally& tally, std::ostream& out) {
  out << "target         runs   failures  told-failure  told-success     boxes\n";
  for (std::size_t target = 0; target < kTargets; ++target) {
    const Row& row = tally.rows[target];
    out << std::left << std::setw(10) << TargetName(target) << std::right << std::setw(9)
        << row.runs << std::setw(11) << row.failures << std::setw(14) << row.told_failure
        << std::setw(14) << row.told_success << std::setw(10) << row.boxes << "\n";
  }
  for (const auto& [what, count] : tally.successes)
    out << "success: " << what << " " << count << "\n";
  out << "calls " << tally.calls << "\nhealthy-calls-afterwards " << tally.checks
      << "\nlongest-struck-call-ms " << tally.longest / 1000 << "\n";
}

}  // namespace kestra::torture
