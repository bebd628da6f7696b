#pragma once

#include <array>
#include <string_view>

#include "campaigns/line_faults/run.hpp"

namespace kestra::line_faults {

// How far what the printer counted is from what the host was told, from harmless to worst.
enum class Verdict {
  kAgreed,     // success: done once; failure: not done
  kAmbiguous,  // the host was told failure, and the printer did it, at least in part
  kUnseen,     // success is told whatever comes of it, and it was not done
  kDisguised,  // one of the two below, by an answer whose damage neither its sum nor its bytes show
  kMisread,    // done once and told so, but what the host reads in its buffer is wrong
  kTwice,      // the printer did it more than once
  kFalseSuccess,  // the host was told success, and the printer did not do it
  kAltered,       // the printer did what nobody asked for
};
inline constexpr std::array<std::string_view, 8> kVerdictNames{"agreed",
                                                               "told failure, done",
                                                               "told success unseen, not done",
                                                               "damage with a right sum",
                                                               "datum misread",
                                                               "done twice",
                                                               "told success, not done",
                                                               "something else done"};

// Whether the printer's answers, as the host took them, led it to believe what is not so.
bool Misled(Verdict verdict);

// The rounding always tells success.
inline constexpr std::string_view kRounding = "EP_AjusteRedondeo";

// Whether the printer has a book that shows a command: not of texts, reports that close nothing, lists,
// drawers, paper.
bool HasBook(const std::string& deed);

// What a run comes to, next to one on a good line.
Verdict Judge(const RunReport& run, const RunReport& good);

// How often a line fails and the operator insists: each costs a frame at most one more attempt.
struct Strain {
  std::size_t faults = 0;
  OperatorHabit habit = OperatorHabit::kNever;
  Mode mode = Mode::kBase;
};

// The longest that a call of so many frames may take.
Micros LongestCall(std::size_t frames, const Strain& strain);

}  // namespace kestra::line_faults
