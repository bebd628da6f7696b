#pragma once

#include "frame/library.hpp"

namespace kestra {

// Adds lines to the open document until the printer's total is the host's.
void AjustarRedondeo(Biblioteca& k, double total);

}  // namespace kestra
