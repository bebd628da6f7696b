#pragma once

#include "state/library.hpp"

namespace kestra {

// Adds lines to the open document until the printer's total is the host's.
void AjusteRedondeo(Library& library, double total);

}  // namespace kestra
