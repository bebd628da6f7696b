#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

#include "frame/command_log.hpp"
#include "frame/failure.hpp"
#include "frame/instance.hpp"
#include "frame/library.hpp"
#include "frame/startup.hpp"
#include "frame/turn.hpp"
#include "platform/floating_point.hpp"

namespace kestra {

// Runs what may be called at any time; a failure of it becomes `fracaso`.
template <typename Cuerpo>
std::int32_t SinFallar(std::int32_t fracaso, Cuerpo cuerpo) noexcept {
  try {
    return cuerpo();
  } catch (...) {
    return fracaso;  // the host must survive anything
  }
}

// Runs the body of an operation. Whatever goes wrong in it ends here: in the log and as `fracaso`.
template <typename Operacion>
std::int32_t Exportar(std::string_view nombre, std::int32_t fracaso, Operacion operacion) noexcept {
  const Turno turno;
  if (!turno) return fracaso;
  const FloatingPoint ours;
  return SinFallar(fracaso, [&] {
    auto& k = Instancia();
    if (turno.Heredado()) SoltarAbandonado(k);
    try {
      return operacion(k);
    } catch (const std::exception& error) {
      RegistrarFalla(k, AFalla(error), nombre);
      return fracaso;
    }
  });
}

}  // namespace kestra
