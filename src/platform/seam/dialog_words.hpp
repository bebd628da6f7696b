#pragma once

#include <string_view>

#include "base/ansi.hpp"

namespace kestra {

// Texts of the warning that the fiscal memory is nearly full; its button is kCloseButton.
constexpr std::string_view kMemoryFullTitle = "ATENCIÓN"_ansi;
constexpr std::string_view kMemoryFullHeading = "ATENCIÓN!"_ansi;
constexpr std::string_view kMemoryFullText =
    "Restan menos de 30 (treinta) cierres Z para que la memoria fiscal se complete (memoria fiscal "
    "llena). Consulte a su técnico fiscal para prevenir un bloqueo futuro por memoria fiscal llena."_ansi;

}  // namespace kestra
