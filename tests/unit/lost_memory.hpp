#pragma once

namespace kestra::unit {

// For as long as it lives, what is left on the heap counts as meant to stay there: nobody is left to free
// what an abandoned call holds. One file for runs with a leak check, one for the others.
class LostMemory {
 public:
  LostMemory();
  LostMemory(const LostMemory&) = delete;
  LostMemory& operator=(const LostMemory&) = delete;
  ~LostMemory();
};

}  // namespace kestra::unit
