#pragma once

#include <span>
#include <string>
#include <string_view>

#include "state/causes.hpp"
#include "state/certainty.hpp"

namespace kestra {

struct Library;

// The verdict on a frame that is sent once more, from that on its sendings so far (kNothingAsked when
// there is none) and that on the newest one.
Verdict AfterRepetition(const Verdict& before, const Verdict& now);

// Forgets the last call's report and begins that of the call `name`.
void BeginCall(Library& library, std::string_view name) noexcept;

// The call with its arguments, as the operator is asked about it; the first one counts.
void NameCall(Library& library, std::string_view call) noexcept;

// A frame is about to be written.
void NoteSending(Library& library) noexcept;

// The fields of an answer that counts: both status words and the data fields.
void NoteAnswer(Library& library, std::span<const std::string> fields) noexcept;

// What becomes of the frame under way when the call ends here: a host may leave it in a callback.
void NoteSoFar(Library& library, const Verdict& verdict, Errand errand = Errand::kCommand) noexcept;

// The frame is over: adds its verdict to the call's outcome and cause.
void NoteVerdict(Library& library, const Verdict& verdict,
                 Errand errand = Errand::kCommand) noexcept;

// The call ended by a failure beside its frames, or before them.
void NoteFailure(Library& library, const Failure& failure) noexcept;

// A condition that the call met without changing its outcome; the first one counts.
void NoteCause(Library& library, Cause cause) noexcept;

}  // namespace kestra
