#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t EspecificarPercepcionGlobal(Library& library, const char* description, double amount,
                                         double vat, const char* qualifier);

}  // namespace kestra
