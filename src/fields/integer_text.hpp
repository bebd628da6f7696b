#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// Optional blanks, optional sign, decimal digits, optional blanks.
bool EsNumero(std::string_view texto);

// Throw Falla: type mismatch for what is no number, overflow for one out of range.
std::int32_t ANumero(std::string_view texto);
std::int16_t ANumeroCorto(std::string_view texto);

// Any count of digits, with a point or without.
double ANumeroReal(std::string_view texto);

// A number as a whole one of at least so many digits; a longer one keeps all of its digits. What is no
// number becomes zeros.
std::string EnteroRelleno(std::string_view texto, std::size_t digitos);

}  // namespace kestra
