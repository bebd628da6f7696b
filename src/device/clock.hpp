#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t CambiarFechaHora(Biblioteca& k, const char* fecha, const char* hora);
std::int32_t ObtenerFechaHora(Biblioteca& k, char* resultado);

}  // namespace kestra
