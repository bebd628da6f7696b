#pragma once

#include <cstdint>

#include "documents/opening.hpp"
#include "state/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteFiscal(Library& library, const OpeningArguments& arguments);
std::int32_t CerrarComprobanteFiscal(Library& library, const char* kind, const char* letter,
                                     char* number);
std::int32_t Cancelar(Library& library);

}  // namespace kestra
