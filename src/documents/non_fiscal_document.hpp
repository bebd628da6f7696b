#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscal(Biblioteca& k);
std::int32_t ImprimirTextoNoFiscal(Biblioteca& k, const char* texto);
std::int32_t CerrarComprobanteNoFiscal(Biblioteca& k);

}  // namespace kestra
