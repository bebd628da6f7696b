#pragma once

#include <cstdint>
#include <string_view>

#include "frame/library.hpp"

namespace kestra {

std::int32_t ImprimirTextoFiscal(Biblioteca& k, const char* texto);

// The same for a text of any length, sent as it is.
std::int32_t ImprimirTextoFiscalInterna(Biblioteca& k, std::string_view texto);

}  // namespace kestra
