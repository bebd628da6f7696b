#include "unit/lost_memory.hpp"

namespace kestra::unit {

LostMemory::LostMemory() = default;
LostMemory::~LostMemory() = default;

}  // namespace kestra::unit
