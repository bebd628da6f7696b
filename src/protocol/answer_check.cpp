#include "protocol/answer_check.hpp"

#include <algorithm>
#include <utility>

#include "dialogs/conditions.hpp"
#include "dialogs/status_report.hpp"
#include "protocol/answer.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

Fields AllFields(const State& state) {
  Fields fields{state.EstadoImpresora, state.EstadoFiscal};
  std::copy(state.Respuesta.begin(), state.Respuesta.end(), fields.begin() + 2);
  return fields;
}

void ShowReport(Library& library) {
  if (library.platform.GetOperator().StatusReport(BuildReport(library.state))) {
    library.state.Reintentar = kTrue;
  }
}

}  // namespace

void AnnounceQuery(Library& library, const Command& query) {
  library.state.Respuestas = query.Bytes();
}

void SepararRespuesta(Library& library) {
  auto& state = library.state;
  state.Respuestas = state.RespuestaActual;
  state.RespuestaCompleta = state.RespuestaActual;
  auto fields = CutFields(state.Respuestas);
  state.EstadoImpresora = std::move(fields[0]);
  state.EstadoFiscal = std::move(fields[1]);
  std::move(fields.begin() + 2, fields.end(), state.Respuesta.begin());
}

void LimpiarBits(Library& library) {
  library.state.BitImpresora.fill(kFalse);
  library.state.BitFiscal.fill(kFalse);
}

void DecodificarEstados(Library& library) {
  LimpiarBits(library);
  DecodePrinter(library.state.EstadoImpresora, library.state.BitImpresora);
  DecodeFiscal(library.state.EstadoFiscal, library.state.BitFiscal);
}

namespace {

void KeepAnswer(Library& library) {
  const auto& state = library.state;
  SepararRespuesta(library);
  DecodificarEstados(library);
  if (state.MostrarRespuestas == 1) {
    library.platform.GetOperator().Message(ListingText(AllFields(state)), "", kBoxOk);
  }
}

}  // namespace

void ShowAnswer(Library& library, const std::string& answer) {
  library.state.RespuestaActual = answer;
  KeepAnswer(library);
}

void ReportConditions(Library& library) {
  const auto& state = library.state;
  const bool failure = FailsCommand(state.BitImpresora, state.BitFiscal);
  const bool wanted = failure && state.ErrorMostrar == 1;
  if (!wanted && state.BitImpresora[kOutOfPaper] == kFalse) return;
  library.certainty.report.reported = true;
  ShowReport(library);
}

bool ListarRespuestas(Library& library) {
  const auto& state = library.state;
  KeepAnswer(library);
  const bool failure = FailsCommand(state.BitImpresora, state.BitFiscal);
  // Kept as is: out of paper asks for the operator even when the command went through.
  if (state.BitImpresora[kOutOfPaper] != kFalse) ShowReport(library);
  if (!failure) return true;
  if (state.ErrorMostrar == 1) ShowReport(library);
  return false;
}

}  // namespace kestra
