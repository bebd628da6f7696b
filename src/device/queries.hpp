#pragma once

#include "state/library.hpp"

namespace kestra {

// Asks the printer for its status and tells the operator each condition. True: nothing is set.
bool ObtenerEstado(Library& library);

}  // namespace kestra
