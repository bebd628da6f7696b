#pragma once

#include <type_traits>

#include "protocol/safe_line.hpp"
#include "state/certainty.hpp"

namespace kestra {

// How long a call of the safe mode goes on finding out: PacienciaSegura, from the first thing that went wrong. All
// its commands together: one that has used it up leaves the others none.
class Patience {
 public:
  explicit Patience(Library& library);

  // From now on, unless it has begun already.
  void Begin();
  void Anew();
  [[nodiscard]] bool HasBegun() const { return until_ < kNever; }
  [[nodiscard]] bool Over() const;

 private:
  Library& library_;
  double& until_;
};

// Opens the line, again and again while that may come right and there is patience. `in_doubt`: a command may
// have been carried out, and whatever is wrong with the port is waited for.
bool OpenInTime(Library& library, SafeLine& line, Patience& patience, bool in_doubt);

// Asks on the open line until that is answered or patience ends; where something has gone wrong already, on a
// line that has come to rest. What `ask` gives back tells whether it was `answered` and by its `cause` why not.
template <typename Ask>
auto AskInTime(Library& library, SafeLine& line, Patience& patience, bool in_doubt, Ask ask) {
  std::invoke_result_t<Ask> found;
  while (OpenInTime(library, line, patience, in_doubt)) {
    const bool ready = !patience.HasBegun() || line.Rest();
    if (ready) found = ask();
    if (found.answered) return found;
    if (!ready) found.cause = line.Why();
    patience.Begin();
    if (patience.Over()) return found;
  }
  found.cause = line.Why();
  return found;
}

}  // namespace kestra
