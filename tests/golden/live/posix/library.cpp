// Linked: each case has a process of its own, which costs little here.
#include "golden/live/library.hpp"

namespace kestra::live {

void LoadLibraryUnderTest() {}

bool LeaveLibraryUnderTest() {
  return false;
}

}  // namespace kestra::live
