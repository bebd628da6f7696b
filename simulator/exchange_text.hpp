#pragma once

#include <string>

#include "line.hpp"

namespace impresora {

// One readable line about an exchange, without the line end.
std::string Describe(const Exchange& exchange);

}  // namespace impresora
