#pragma once

#include "fuzz/input.hpp"

namespace kestra::fuzzing {

// The host answers instead of the operator, as the input says, and calls the library meanwhile.
class HostDialogs {
 public:
  explicit HostDialogs(fuzz::Input& input) : input_(input) {}

  // Hands a record over, some of its members null, of a size that may be another version's.
  void Hire(fuzz::Input& input);

  // What a box is answered.
  std::int32_t Answer();

 private:
  fuzz::Input& input_;
};

}  // namespace kestra::fuzzing
