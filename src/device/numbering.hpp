#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t Numeracion(Biblioteca& k, char* resultado);

}  // namespace kestra
