#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "fields/boolean.hpp"
#include "protocol/conditions.hpp"

namespace kestra {

using Marcas = std::array<Booleano, 16>;

// The four flags of a hexadecimal digit in either case, lowest weight first. Throws Falla for
// anything else, the empty text too.
std::array<Booleano, 4> ValorDigitoHex(std::string_view digito);

// Sets the flags of a status word of four hexadecimal digits, from its last digit to its first; a
// digit that is none throws Falla and leaves the flags behind it as they were.
void DecodificarImpresora(std::string_view palabra, Marcas& marcas);
void DecodificarFiscal(std::string_view palabra, Marcas& marcas);

bool EstaMarcada(const Condicion& condicion, const Marcas& impresora, const Marcas& fiscal);

// True when a condition that fails a command is set.
bool HayFalla(const Marcas& impresora, const Marcas& fiscal);

// The messages that the status query shows for these flags, in their order.
std::vector<std::string_view> MensajesDeEstado(const Marcas& impresora, const Marcas& fiscal);

}  // namespace kestra
