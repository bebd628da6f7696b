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

}  // namespace kestra
