#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t EspecificarPercepcionGlobal(Biblioteca& k, const char* descripcion, double monto,
                                         double iva, const char* calificador);

}  // namespace kestra
