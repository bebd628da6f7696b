#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/line_faults/byte_fault.hpp"
#include "campaigns/line_faults/canonical_documents.hpp"
#include "campaigns/line_faults/faulty_wire.hpp"
#include "campaigns/line_faults/line_world.hpp"

namespace kestra::line_faults {

// What the operator says when the library asks whether to try again.
enum class OperatorHabit { kNever, kOnce };

// A command that changed the printer, as its frame had it but for the sequence number.
using Deeds = std::vector<std::string>;

// One call: what the host was told, and what the printer did for it.
struct CallReport {
  std::string operation;
  std::int32_t result = 0;
  std::vector<std::string> buffers;
  Micros lasted{};
  std::size_t frames = 0;
  std::size_t first_byte = 0;  // of what the host sent for it, among all that it sent
  Deeds done;
  bool disguised = false;  // an answer to it was taken in whose damage nobody can see
};

// A document up to its end or to the first call that failed, and the line at rest again.
struct RunReport {
  std::vector<CallReport> calls;
  Deeds foreign;                // done by the printer, although no host wrote it
  bool damaged_answer = false;  // an answer was taken that the printer had not sent so
  bool bad_checksum = false;    // and one whose checksum is not its own
  bool visible_damage = false;  // or that has a byte or a number which no answer to its frame has
  std::size_t to_printer = 0;   // bytes that the host sent
  std::size_t to_host = 0;      // and the printer
};

// Whether an answer's sum is its own, its bytes are such as a printer sends, and its number and command byte are
// those of a frame that the host wrote: damage in it is seen by nobody.
bool LooksLikeAnAnswer(std::string_view frame, const LineWorld& world);

RunReport Play(const CanonicalDocument& document, std::span<const ByteFault> faults,
               OperatorHabit habit, Mode mode = Mode::kBase);

}  // namespace kestra::line_faults
