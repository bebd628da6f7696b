#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t CambiarFechaHora(Library& library, const char* date, const char* time);
std::int32_t ObtenerFechaHora(Library& library, char* result);
std::int32_t SetEncabezado(Library& library, const char* text, std::int32_t line,
                           std::int32_t attribute);
std::int32_t GetEncabezado(Library& library, char* result, std::int32_t line);

}  // namespace kestra
