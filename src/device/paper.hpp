#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t CortaPapel(Biblioteca& k);
std::int32_t AvanzaPapel(Biblioteca& k, std::int16_t lineas);

}  // namespace kestra
