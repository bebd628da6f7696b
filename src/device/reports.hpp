#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t ReporteX(Biblioteca& k);
std::int32_t ReporteZ(Biblioteca& k);
std::int32_t ReporteZporNumeros(Biblioteca& k, std::int32_t primero, std::int32_t ultimo,
                                std::int32_t tercero);
std::int32_t ReporteZporFechas(Biblioteca& k, const char* desde, const char* hasta,
                               std::int32_t tercero);

}  // namespace kestra
