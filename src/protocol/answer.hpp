#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kestra {

// An answer carries two status words and up to thirteen data fields.
constexpr std::size_t kCamposDeRespuesta = 15;
using Campos = std::array<std::string, kCamposDeRespuesta>;

// Cuts the next field off the front of `respuestas`: what stands between a separator and the next
// one (or the end byte). Empty, with nothing cut, when there is no end.
std::string SiguienteCampo(std::string& respuestas);

// All fields in order; `respuestas` is left as the last cut left it. Missing ones are empty.
Campos CortarCampos(std::string& respuestas);

// The operator's listing: every field under its label.
std::string TextoDeListado(const Campos& campos);

}  // namespace kestra
