#include "documents/closing.hpp"
#include "documents/document_kinds.hpp"
#include "documents/fiscal_document.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kNumberLength = 8;

std::int32_t Close(Library& library, std::string_view kind, std::string_view letter) {
  const auto call = QuotedCall("EP_CerrrarComprobanteFiscal", {kind, letter});
  if (!Confirm(library, call)) return kFailure;
  EscribirLog(library, " - Comando : EP_CerrarComprobanteFiscal");
  const auto* row = FindFiscalKind(library.state.TipoComprobante, kind);
  if (row == nullptr) return kFailure;
  return Send(library, ClosingCommand(row->family, row->at_closing, letter));
}

}  // namespace

std::int32_t CerrarComprobanteFiscal(Library& library, const char* kind, const char* letter,
                                     char* number) {
  const auto result = Close(library, LeerCadena(kind, 2), LeerCadena(letter, 1));
  // Kept as is: the host's buffer is written whatever happened, with the field that the last answer
  // left.
  DevolverCadena(number, FixedWidth(library.state.Respuesta[0], kNumberLength), kNumberLength);
  return result;
}

std::int32_t Cancelar(Library& library) {
  if (!Confirm(library, "EP_CancelarDocumento()")) return kFailure;
  EscribirLog(library, " - Comando : EP_Cancelar()");
  const char byte = ByteOfFamily(library.state.TipoComprobante, kTotals);
  if (byte == '\0') return SendPrevious(library);
  const std::string_view empty(&kEmptyField, 1);
  return Send(library, Command(byte).Field(empty).Field(empty).Field("C"));
}

}  // namespace kestra
