#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t SetEncabezado(Biblioteca& k, const char* texto, std::int32_t linea,
                           std::int32_t atributo);
std::int32_t GetEncabezado(Biblioteca& k, char* resultado, std::int32_t linea);

}  // namespace kestra
