#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t ReporteX(Library& library);
std::int32_t ReporteZ(Library& library);
std::int32_t ReporteZporNumeros(Library& library, std::int32_t first, std::int32_t last,
                                std::int32_t third);
std::int32_t ReporteZporFechas(Library& library, const char* from, const char* to,
                               std::int32_t third);

std::int32_t CambiarFechaHora(Library& library, const char* date, const char* time);
std::int32_t ObtenerFechaHora(Library& library, char* result);
std::int32_t SetEncabezado(Library& library, const char* text, std::int32_t line,
                           std::int32_t attribute);
std::int32_t GetEncabezado(Library& library, char* result, std::int32_t line);

std::int32_t CortaPapel(Library& library);
std::int32_t AvanzaPapel(Library& library, std::int16_t lines);
std::int32_t AbrirCajonDeDinero(Library& library, std::int32_t drawer);

// Asks the printer for its status and tells the operator each condition. True: nothing is set.
bool ObtenerEstado(Library& library);

std::int32_t ValoresModelo(Library& library, char* result);
std::int32_t AutodetectarModelo(Library& library, char* result);
std::int32_t Numeracion(Library& library, char* result);

}  // namespace kestra
