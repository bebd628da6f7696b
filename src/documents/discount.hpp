#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t DescuentoGeneral(Biblioteca& k, const char* descripcion, double monto);
std::int32_t RecargoGeneral(Biblioteca& k, const char* descripcion, double monto);

}  // namespace kestra
