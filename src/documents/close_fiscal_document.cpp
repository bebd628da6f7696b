#include "documents/closing.hpp"
#include "documents/document_kinds.hpp"
#include "documents/fiscal_document.hpp"
#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kLargoNumero = 8;

std::int32_t Cerrar(Biblioteca& k, std::string_view tipo, std::string_view letra) {
  const auto llamada = LlamadaEntreComillas("EP_CerrrarComprobanteFiscal", {tipo, letra});
  if (!Confirmar(k, llamada)) return kFracaso;
  EscribirLog(k, " - Comando : EP_CerrarComprobanteFiscal");
  const auto* fila = BuscarTipoFiscal(k.estado.TipoComprobante, tipo);
  if (fila == nullptr) return kFracaso;
  return Mandar(k, ComandoDeCierre(fila->familia, fila->al_cerrar, letra));
}

}  // namespace

std::int32_t CerrarComprobanteFiscal(Biblioteca& k, const char* tipo, const char* letra,
                                     char* numero) {
  const auto resultado = Cerrar(k, LeerCadena(tipo, 2), LeerCadena(letra, 1));
  // Kept as is: the host's buffer is written whatever happened, with the field that the last answer
  // left.
  DevolverCadena(numero, Fijar(k.estado.Respuesta[0], kLargoNumero), kLargoNumero);
  return resultado;
}

std::int32_t Cancelar(Biblioteca& k) {
  if (!Confirmar(k, "EP_CancelarDocumento()")) return kFracaso;
  EscribirLog(k, " - Comando : EP_Cancelar()");
  const char byte = ByteDeFamilia(k.estado.TipoComprobante, kTotales);
  if (byte == '\0') return MandarAnterior(k);
  const std::string_view vacio(&kCampoVacio, 1);
  return Mandar(k, Comando(byte).Campo(vacio).Campo(vacio).Campo("C"));
}

}  // namespace kestra
