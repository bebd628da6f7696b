#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

// Asks the printer for its status and tells the operator each condition. True: nothing is set.
bool ObtenerEstado(Library& library);

std::int32_t ValoresModelo(Library& library, char* result);
std::int32_t AutodetectarModelo(Library& library, char* result);
std::int32_t Numeracion(Library& library, char* result);

}  // namespace kestra
