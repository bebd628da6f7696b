#pragma once

#include <cstdint>

namespace kestra {

struct Library;

// Reads the configuration and sets up Puerto. Here alone 1 is success and 0 failure.
std::int32_t Init(Library& library);

// Gives Puerto up.
void Kill(Library& library);

// Lets go of what a call held that the host left in the middle: the open port, and what start-up
// alone needs.
void ReleaseAbandoned(Library& library) noexcept;

}  // namespace kestra
