#include "device/status_query.hpp"

#include "dialogs/conditions.hpp"
#include "protocol/answer_check.hpp"
#include "protocol/command.hpp"
#include "protocol/exchange.hpp"
#include "state/log.hpp"

namespace kestra {

bool ObtenerEstado(Library& library) {
  auto& state = library.state;
  EscribirLog(library, " - Comando : ObtenerEstado()");
  state.ComandoActual = Command('*').Field("A").Bytes();
  state.Respuestas = state.ComandoActual;
  if (Enviar(library) != 0) return false;
  SepararRespuesta(library);
  DecodificarEstados(library);
  // Kept as is: the query judges by the summary bits, a command by its own list of conditions.
  if (state.BitImpresora[kSummary] == kFalse && state.BitFiscal[kSummary] == kFalse) return true;
  if (state.ErrorMostrar == 1) {
    for (const auto message : StatusMessages(state.BitImpresora, state.BitFiscal)) {
      library.platform.GetOperator().Message(message, "", kBoxOk);
    }
  }
  return false;
}

}  // namespace kestra
