#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t ValoresModelo(Library& library, char* result);
std::int32_t AutodetectarModelo(Library& library, char* result);

}  // namespace kestra
