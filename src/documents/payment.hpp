#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t ImprimirPago(Biblioteca& k, const char* descripcion, double monto);

}  // namespace kestra
