#pragma once

#include <cstdint>

#include "documents/opening.hpp"
#include "frame/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteFiscal(Biblioteca& k, const ArgumentosDeApertura& argumentos);
std::int32_t CerrarComprobanteFiscal(Biblioteca& k, const char* tipo, const char* letra,
                                     char* numero);
std::int32_t Cancelar(Biblioteca& k);

}  // namespace kestra
