#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscal(Library& library);
std::int32_t ImprimirTextoNoFiscal(Library& library, const char* text);
std::int32_t CerrarComprobanteNoFiscal(Library& library);

}  // namespace kestra
