#pragma once

#include <cstdint>

namespace kestra {

struct Biblioteca;

// Reads the configuration and sets up Puerto. Here alone 1 is success and 0 failure.
std::int32_t Init(Biblioteca& k);

// Gives Puerto up.
void Kill(Biblioteca& k);

// Lets go of what a call held that the host left in the middle: the open port, and what start-up
// alone needs.
void SoltarAbandonado(Biblioteca& k) noexcept;

}  // namespace kestra
