#include "protocol/answer_check.hpp"

#include <algorithm>
#include <utility>

#include "dialogs/status_report.hpp"
#include "frame/command_log.hpp"
#include "frame/library.hpp"
#include "protocol/answer.hpp"
#include "protocol/command.hpp"
#include "protocol/exchange.hpp"

namespace kestra {
namespace {

Campos TodosLosCampos(const Estado& estado) {
  Campos campos{estado.EstadoImpresora, estado.EstadoFiscal};
  std::copy(estado.Respuesta.begin(), estado.Respuesta.end(), campos.begin() + 2);
  return campos;
}

void MostrarInforme(Biblioteca& k) {
  if (k.platform.GetOperator().StatusReport(ArmarInforme(k.estado))) {
    k.estado.Reintentar = kVerdadero;
  }
}

}  // namespace

void SepararRespuesta(Biblioteca& k) {
  auto& estado = k.estado;
  estado.Respuestas = estado.RespuestaActual;
  estado.RespuestaCompleta = estado.RespuestaActual;
  auto campos = CortarCampos(estado.Respuestas);
  estado.EstadoImpresora = std::move(campos[0]);
  estado.EstadoFiscal = std::move(campos[1]);
  std::move(campos.begin() + 2, campos.end(), estado.Respuesta.begin());
}

void LimpiarBits(Biblioteca& k) {
  k.estado.BitImpresora.fill(kFalso);
  k.estado.BitFiscal.fill(kFalso);
}

void DecodificarEstados(Biblioteca& k) {
  LimpiarBits(k);
  DecodificarImpresora(k.estado.EstadoImpresora, k.estado.BitImpresora);
  DecodificarFiscal(k.estado.EstadoFiscal, k.estado.BitFiscal);
}

bool ListarRespuestas(Biblioteca& k) {
  auto& estado = k.estado;
  SepararRespuesta(k);
  DecodificarEstados(k);
  const bool falla = HayFalla(estado.BitImpresora, estado.BitFiscal);
  if (estado.MostrarRespuestas == 1) {
    k.platform.GetOperator().Message(TextoDeListado(TodosLosCampos(estado)), "", kBoxOk);
  }
  // Kept as is: out of paper asks for the operator even when the command went through.
  if (estado.BitImpresora[kSinPapel] != kFalso) MostrarInforme(k);
  if (!falla) return true;
  if (estado.ErrorMostrar == 1) MostrarInforme(k);
  return false;
}

bool ObtenerEstado(Biblioteca& k) {
  auto& estado = k.estado;
  EscribirLog(k, " - Comando : ObtenerEstado()");
  estado.ComandoActual = Comando('*').Campo("A").Bytes();
  estado.Respuestas = estado.ComandoActual;
  if (Enviar(k) != 0) return false;
  SepararRespuesta(k);
  DecodificarEstados(k);
  // Kept as is: the query judges by the summary bits, a command by its own list of conditions.
  if (estado.BitImpresora[kResumen] == kFalso && estado.BitFiscal[kResumen] == kFalso) return true;
  if (estado.ErrorMostrar == 1) {
    for (const auto mensaje : MensajesDeEstado(estado.BitImpresora, estado.BitFiscal)) {
      k.platform.GetOperator().Message(mensaje, "", kBoxOk);
    }
  }
  return false;
}

}  // namespace kestra
