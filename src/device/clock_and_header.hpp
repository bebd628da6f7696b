#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t CambiarFechaHora(Library& library, const char* date, const char* time);
std::int32_t ObtenerFechaHora(Library& library, char* result);

}  // namespace kestra
