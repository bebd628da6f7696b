#pragma once

#include <cstdint>

#include "documents/opening.hpp"
#include "state/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscalHomologado(Library& library,
                                                const OpeningArguments& arguments);
std::int32_t CerrarComprobanteNoFiscalHomologado(Library& library, const char* kind,
                                                 const char* mark);

}  // namespace kestra
