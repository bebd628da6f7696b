#pragma once

#include "machine/machine.hpp"

namespace impresora {

// What a strict printer no longer knows when its power comes back, besides all that was on its line.
// The rest is in its fiscal memory, or is a thing that no power moves.
void ForgetWithoutPower(Machine& m);

}  // namespace impresora
