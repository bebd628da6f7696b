#include "documents/payment.hpp"

#include "documents/document_kinds.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kDescriptionLength = 20;

}  // namespace

std::int32_t ImprimirPago(Library& library, const char* description, double amount) {
  auto& state = library.state;
  const auto bytes = LeerCadena(description, 80);
  const auto amount_field = NumberField(library, amount, {state.EntDesc, state.DecDesc});
  const auto text = Clean(state, TextField(library, bytes, kDescriptionLength));
  if (!Confirm(library, Call("EP_ImprimirPago", {text, amount_field}))) return kFailure;
  EscribirLog(library, " - Comando : ImprimirPago()");
  const char byte = ByteOfFamily(state.TipoComprobante, kTotals);
  if (byte == '\0') return SendPrevious(library);
  return Send(library, Command(byte).Field(text).Field(amount_field).Field("T"));
}

}  // namespace kestra
