#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t AbrirCajonDeDinero(Biblioteca& k, std::int32_t cajon);

}  // namespace kestra
