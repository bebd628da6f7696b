#include "documents/non_fiscal_document.hpp"

#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscal(Library& library) {
  return Operate(library, "EP_AbrirComprobanteNoFiscal()",
                 " - Comando : EP_AbrirComprobanteNoFiscal()", Command('H'));
}

std::int32_t ImprimirTextoNoFiscal(Library& library, const char* text) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonTextoNoFiscalT, state.LonTextoNoFiscalF);
  const auto field = Clean(state, TextField(library, LeerCadena(text, 120), length));
  return Operate(library, Call("EP_ImprimirTextoNoFiscal", {field}),
                 " - Comando : EP_ImprimirTextoNoFiscal()", Command('I').Field(field));
}

std::int32_t CerrarComprobanteNoFiscal(Library& library) {
  return Operate(library, "EP_CerrarComprobanteNoFiscal()",
                 " - Comando : EP_CerrarComprobanteNoFiscal()", Command('J').Field("T"));
}

}  // namespace kestra
