#include "device/clock.hpp"

#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {

std::int32_t CambiarFechaHora(Library& library, const char* date, const char* time) {
  const auto day = LeerCadena(date, 6);
  const auto moment = LeerCadena(time, 6);
  return Operate(library, Call("EP_CambiarFechaHora", {day, moment}),
                 " - Comando : EP_CambiarFechaHora", Command('X').Field(day).Field(moment));
}

std::int32_t ObtenerFechaHora(Library& library, char* result) {
  if (!Confirm(library, "EP_ObtenerFechaHora()")) return kFailure;
  EscribirLog(library, " - Comando : EP_ObtenerFechaHora");
  const auto verdict = Send(library, Command('Y'));
  DevolverCadena(result, library.state.Respuesta[0] + library.state.Respuesta[1], 12);
  return verdict;
}

}  // namespace kestra
