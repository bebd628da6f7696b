#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t DescuentoGeneral(Library& library, const char* description, double amount);
std::int32_t RecargoGeneral(Library& library, const char* description, double amount);

}  // namespace kestra
