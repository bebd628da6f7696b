#include "documents/operations.hpp"

#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscal(Library& library) {
  return Run(library, {.call = "EP_AbrirComprobanteNoFiscal()",
                       .log = " - Comando : EP_AbrirComprobanteNoFiscal()",
                       .command = Command('H')});
}

std::int32_t ImprimirTextoNoFiscal(Library& library, const char* text) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonTextoNoFiscalT, state.LonTextoNoFiscalF);
  const auto field = Clean(state, TextField(library, LeerCadena(text, 120), length));
  return Run(library, {.call = Call("EP_ImprimirTextoNoFiscal", {field}),
                       .log = " - Comando : EP_ImprimirTextoNoFiscal()",
                       .command = Command('I').Field(field)});
}

std::int32_t CerrarComprobanteNoFiscal(Library& library) {
  return Run(library, {.call = "EP_CerrarComprobanteNoFiscal()",
                       .log = " - Comando : EP_CerrarComprobanteNoFiscal()",
                       .command = Command('J').Field("T")});
}

}  // namespace kestra
