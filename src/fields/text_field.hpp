#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// What the printer reads as an empty field.
constexpr char kCampoVacio = '\x7F';

// Without leading and trailing blanks (blanks only, no other white space).
std::string_view Recortar(std::string_view texto);

// Cut or padded with blanks to exactly `longitud` characters.
std::string Fijar(std::string_view texto, std::size_t longitud);

// Filled with `relleno` on the left up to `longitud`; a longer text stays as it is.
std::string RellenarIzquierda(std::string_view texto, std::size_t longitud, char relleno);

// Replaces the characters that the printer does not accept by "-".
std::string LimpiarCaracteres(std::string texto);

// Fits a text to a field: trimmed, then padded or cut; an empty one becomes kCampoVacio. Throws
// Falla for a length that no field has.
std::string AjustarTexto(std::string_view texto, std::int32_t longitud);

}  // namespace kestra
