#pragma once

#include <cstdint>

#include "documents/opening.hpp"
#include "frame/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscalHomologado(Biblioteca& k,
                                                const ArgumentosDeApertura& argumentos);
std::int32_t CerrarComprobanteNoFiscalHomologado(Biblioteca& k, const char* tipo,
                                                 const char* marca);

}  // namespace kestra
