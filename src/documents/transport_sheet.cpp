#include "documents/transport_sheet.hpp"

#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

std::int32_t VerificaEspacioItem(Library& library) {
  EscribirLog(library, " - Comando : EP_VerificaEspacioItem");
  const auto result = Send(library, Command('\\').Field("Q").Field("L"));
  SepararRespuesta(library);
  return result == kSuccess && library.state.Respuesta[0] == "S" ? 0 : 1;
}

// -1 when the printer did it, 0 when it did not.
std::int32_t TransportStep(Library& library, std::string_view log, std::string_view step) {
  EscribirLog(library, log);
  const auto result = Send(library, Command('\\').Field("D").Field("P").Field("T").Field(step));
  return result == kSuccess ? -1 : 0;
}

std::int32_t CierraHojaTransporte(Library& library) {
  return TransportStep(library, " - Comando : EP_CierraHojaTransporte", "T");
}

std::int32_t AbreHojaTransporte(Library& library) {
  return TransportStep(library, " - Comando : EP_AbreHojaTransporte", "O");
}

}  // namespace

// Kept as is: a transport step that the printer carried out ends the item; one that it refused lets
// the item go on.
bool RoomForItem(Library& library) {
  if (VerificaEspacioItem(library) == 0) return true;
  return CierraHojaTransporte(library) == 0 && AbreHojaTransporte(library) == 0;
}

}  // namespace kestra
