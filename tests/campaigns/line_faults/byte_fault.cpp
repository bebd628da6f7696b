#include "campaigns/line_faults/byte_fault.hpp"

namespace kestra::line_faults {

std::vector<FaultForm> EveryFaultForm() {
  std::vector<FaultForm> forms{{"lost", FaultKind::kDrop}, {"doubled", FaultKind::kDouble}};
  for (unsigned bits = 1; bits <= 0xFF; ++bits) {
    forms.push_back({"any other byte instead", FaultKind::kFlip, static_cast<std::uint8_t>(bits)});
  }
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    forms.push_back({"any byte inserted", FaultKind::kInsert, static_cast<std::uint8_t>(byte)});
  }
  forms.push_back({"delayed past the deadline", FaultKind::kDelay});
  forms.push_back({"split", FaultKind::kSplit});
  return forms;
}

}  // namespace kestra::line_faults
