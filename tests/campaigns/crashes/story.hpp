#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "campaigns/crashes/life.hpp"
#include "campaigns/line_faults/canonical_documents.hpp"
#include "campaigns/line_faults/line_world.hpp"

namespace kestra::crashes {

using line_faults::Breakage;
using line_faults::Breakdown;
using line_faults::CanonicalDocument;
using line_faults::Direction;
using line_faults::Mode;

// What happens to a shop while it issues a document, and what its till is like.
struct Disaster {
  std::optional<Breakdown> breakdown{};              // of the line or the printer
  std::span<const line_faults::ByteFault> faults{};  // the same till goes on
  bool passes = false;                               // within the driver's patience
  std::size_t death = kNever;                        // of the host, in that moment of its life
  std::size_t again = kNever;                        // and of the one that comes after it
  bool printer_too = false;                          // loses its power with the host's
  bool at_once = false;  // the till is started again before the printer has finished
  std::optional<std::uint64_t> storm{};  // instead: troubles at random, one after the other
  bool asks = true;  // it asks what became of the call; else it makes the call again
};

// What the till came to know of the call under way. Down to kTwice, the truth.
enum class Ending : std::uint8_t {
  kPassed,        // the call ended as on any day
  kToldUndone,    // the call itself said so
  kDone,          // the next program was told so
  kNotDone,       // likewise
  kRepeated,      // the next program made the call again, and it was carried out once
  kUnknown,       // no book shows it, and the till was told so
  kUnsent,        // dead before the intent was on the disk: nothing had been sent
  kUnlearnt,      // dead when the result was on the disk: the journal has it, the till has not
  kTwice,         // with ReconoceRepetidas, what no book shows: the printer had forgotten the frame
  kTotalDiffers,  // two faults made up for each other in a command's sum, and the total showed it
  kAltered,       // the same where no total shows it
  kMisled,        // the same in an answer's sum
  kWrong,
};
inline constexpr std::array<std::string_view, 13> kEndingNames{
    "passed",
    "told: not done",
    "settled: done",
    "settled: not done",
    "made again, once",
    "told: unknown",
    "before the intent",
    "not learnt of yet",
    "done twice, no book",
    "another command: the total shows it",
    "another command: no total shows it",
    "another answer",
    "WRONG"};

struct StoryReport {
  Ending ending = Ending::kPassed;
  std::string operation;  // under way
  std::string wrong;      // what was not as it should be
  Act last_act = Act::kOther;
  std::array<std::size_t, kEndingNames.size()> met{};  // in a storm: how its calls ended
};

using Configuration = std::vector<std::pair<std::string, std::string>>;
inline const Configuration kJournal{{"Diario", "diario.txt"}};

// One document, told again and again.
class Story {
 public:
  Story(CanonicalDocument document, Mode mode, const Configuration& more = kJournal);

  // The document to its end, through this: the till does what its library told it, and then goes on. The paper has
  // to be that of a good day.
  [[nodiscard]] StoryReport Play(const Disaster& disaster) const;

  [[nodiscard]] bool GoesWell() const;  // on a good day

  // Of a good day.
  [[nodiscard]] std::size_t Moments() const { return moments_; }
  [[nodiscard]] std::size_t Bytes(Direction direction) const {
    return bytes_[static_cast<std::size_t>(direction)];
  }

 private:
  friend class Telling;

  // How a call ends on a good day.
  struct GoodCall {
    std::int32_t result = 0;
    std::int32_t outcome = 0;
    std::vector<std::string> buffers;
    std::vector<std::string> deeds;
  };

  CanonicalDocument document_;
  Mode mode_;
  std::vector<GoodCall> good_;
  std::vector<std::string> paper_;
  std::vector<std::string> totals_;  // on the paper
  std::size_t moments_ = 0;
  std::array<std::size_t, 2> bytes_{};
};

}  // namespace kestra::crashes
