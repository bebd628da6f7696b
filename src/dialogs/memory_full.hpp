#pragma once

#include <string_view>

#include "fields/ansi.hpp"

namespace kestra {

// Texts of the warning that the fiscal memory is nearly full; its button is kBotonCerrar.
constexpr std::string_view kMemoriaLlenaTitulo = "ATENCIÓN"_ansi;
constexpr std::string_view kMemoriaLlenaEncabezado = "ATENCIÓN!"_ansi;
constexpr std::string_view kMemoriaLlenaTexto =
    "Restan menos de 30 (treinta) cierres Z para que la memoria fiscal se complete (memoria fiscal "
    "llena). Consulte a su técnico fiscal para prevenir un bloqueo futuro por memoria fiscal llena."_ansi;

}  // namespace kestra
