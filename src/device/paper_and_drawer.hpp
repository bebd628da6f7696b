#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t CortaPapel(Library& library);
std::int32_t AvanzaPapel(Library& library, std::int16_t lines);
std::int32_t AbrirCajonDeDinero(Library& library, std::int32_t drawer);

}  // namespace kestra
