#pragma once

#include <string_view>

namespace kestra::golden {

// What the value of a key has to be. Numbers have 32 bits, digit counts and how many letters an inch has 16.
constexpr bool IsText(std::string_view key) {
  return key == "TipoComprobante" || key == "ModeloNombre" || key == "TipoIVA";
}

constexpr bool IsShort(std::string_view key) {
  return key.starts_with("Ent") || key.starts_with("Dec") || key == "IncluirPuntoPrecio" ||
         key == "CPI";
}

// May be left out.
constexpr bool IsOptional(std::string_view key) {
  return key == "CPI" || key == "LogComandos" || key == "UtilizaTransporte" ||
         key == "DelayComandos";
}

}  // namespace kestra::golden
