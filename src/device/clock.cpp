#include "device/clock.hpp"

#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {

std::int32_t CambiarFechaHora(Biblioteca& k, const char* fecha, const char* hora) {
  const auto dia = LeerCadena(fecha, 6);
  const auto momento = LeerCadena(hora, 6);
  return Operar(k, Llamada("EP_CambiarFechaHora", {dia, momento}),
                " - Comando : EP_CambiarFechaHora", Comando('X').Campo(dia).Campo(momento));
}

std::int32_t ObtenerFechaHora(Biblioteca& k, char* resultado) {
  if (!Confirmar(k, "EP_ObtenerFechaHora()")) return kFracaso;
  EscribirLog(k, " - Comando : EP_ObtenerFechaHora");
  const auto exito = Mandar(k, Comando('Y'));
  DevolverCadena(resultado, k.estado.Respuesta[0] + k.estado.Respuesta[1], 12);
  return exito;
}

}  // namespace kestra
