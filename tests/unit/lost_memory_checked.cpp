#include <sanitizer/lsan_interface.h>

#include "unit/lost_memory.hpp"

namespace kestra::unit {

LostMemory::LostMemory() {
  __lsan_disable();
}

LostMemory::~LostMemory() {
  __lsan_enable();
}

}  // namespace kestra::unit
