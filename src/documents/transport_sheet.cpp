#include "documents/transport_sheet.hpp"

#include "frame/command_log.hpp"
#include "frame/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

std::int32_t VerificaEspacioItem(Biblioteca& k) {
  EscribirLog(k, " - Comando : EP_VerificaEspacioItem");
  const auto resultado = Mandar(k, Comando('\\').Campo("Q").Campo("L"));
  SepararRespuesta(k);
  return resultado == kExito && k.estado.Respuesta[0] == "S" ? 0 : 1;
}

// -1 when the printer did it, 0 when it did not.
std::int32_t HojaTransporte(Biblioteca& k, std::string_view registro, std::string_view paso) {
  EscribirLog(k, registro);
  const auto resultado = Mandar(k, Comando('\\').Campo("D").Campo("P").Campo("T").Campo(paso));
  return resultado == kExito ? -1 : 0;
}

std::int32_t CierraHojaTransporte(Biblioteca& k) {
  return HojaTransporte(k, " - Comando : EP_CierraHojaTransporte", "T");
}

std::int32_t AbreHojaTransporte(Biblioteca& k) {
  return HojaTransporte(k, " - Comando : EP_AbreHojaTransporte", "O");
}

}  // namespace

// Kept as is: a transport step that the printer carried out ends the item; one that it refused lets
// the item go on.
bool HayLugarParaItem(Biblioteca& k) {
  if (VerificaEspacioItem(k) == 0) return true;
  return CierraHojaTransporte(k) == 0 && AbreHojaTransporte(k) == 0;
}

}  // namespace kestra
