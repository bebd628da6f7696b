#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t Numeracion(Library& library, char* result);

}  // namespace kestra
