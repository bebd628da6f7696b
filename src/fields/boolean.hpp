#pragma once

#include <cstdint>

namespace kestra {

// A boolean as the library has always kept it.
using Booleano = std::int16_t;
constexpr Booleano kVerdadero = -1;
constexpr Booleano kFalso = 0;
constexpr Booleano ABooleano(bool b) {
  return b ? kVerdadero : kFalso;
}

}  // namespace kestra
