#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

std::int32_t Numeracion(Library& library, char* result);

}  // namespace kestra
