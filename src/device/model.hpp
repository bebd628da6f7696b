#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t ValoresModelo(Biblioteca& k, char* resultado);
std::int32_t AutodetectarModelo(Biblioteca& k, char* resultado);

}  // namespace kestra
