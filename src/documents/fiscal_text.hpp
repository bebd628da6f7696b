#pragma once

#include <cstdint>
#include <string_view>

#include "state/library.hpp"

namespace kestra {

std::int32_t ImprimirTextoFiscal(Library& library, const char* text);

// The same for a text of any length, sent as it is.
std::int32_t ImprimirTextoFiscalInterna(Library& library, std::string_view text);

}  // namespace kestra
