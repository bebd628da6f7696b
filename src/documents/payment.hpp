#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t ImprimirPago(Library& library, const char* description, double amount);

}  // namespace kestra
