#include "device/drawer.hpp"

#include <string>

#include "frame/operation.hpp"

namespace kestra {

std::int32_t AbrirCajonDeDinero(Biblioteca& k, std::int32_t cajon) {
  const auto llamada = Llamada("EP_AbrirCajonDeDinero", {std::to_string(cajon)});
  if (!Confirmar(k, llamada)) return kFracaso;
  // Kept as is: both drawers open by the same command, and there is no log line.
  return cajon == 1 || cajon == 2 ? Mandar(k, Comando('{')) : kFracaso;
}

}  // namespace kestra
