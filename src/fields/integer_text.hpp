#pragma once

#include <cstdint>
#include <string_view>

namespace kestra {

// Optional blanks, optional sign, decimal digits, optional blanks.
bool EsNumero(std::string_view texto);

// Throw Falla: type mismatch for what is no number, overflow for one out of range.
std::int32_t ANumero(std::string_view texto);
std::int16_t ANumeroCorto(std::string_view texto);

// Any count of digits, with a point or without.
double ANumeroReal(std::string_view texto);

}  // namespace kestra
