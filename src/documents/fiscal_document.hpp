#pragma once

#include <cstdint>
#include <string_view>

#include "documents/opening.hpp"
#include "state/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteFiscal(Library& library, const OpeningArguments& arguments);
std::int32_t ImprimirTextoFiscal(Library& library, const char* text);

// The same for a text of any length, sent as it is.
std::int32_t ImprimirTextoFiscalInterna(Library& library, std::string_view text);

std::int32_t CerrarComprobanteFiscal(Library& library, const char* kind, const char* letter,
                                     char* number);
std::int32_t Cancelar(Library& library);

}  // namespace kestra
