#pragma once

#include <optional>

namespace kestra {

struct Library;
class SafeLine;

// How long a call of the safe mode goes on finding out: PacienciaSegura, from the first thing that went wrong.
class Patience {
 public:
  explicit Patience(Library& library) : library_(library) {}

  // From now on, unless it has begun already.
  void Begin();
  void Anew();
  [[nodiscard]] bool Over() const;

 private:
  Library& library_;
  std::optional<double> until_;
};

// Opens the line, again and again while that may come right and there is patience. `in_doubt`: a command may
// have been carried out, and whatever is wrong with the port is waited for.
bool OpenInTime(Library& library, SafeLine& line, Patience& patience, bool in_doubt);

}  // namespace kestra
