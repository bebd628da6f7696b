#include "documents/fiscal_text.hpp"

#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {

std::int32_t ImprimirTextoFiscal(Library& library, const char* text) {
  return ImprimirTextoFiscalInterna(library, Clean(library.state, LeerCadena(text, 26)));
}

std::int32_t ImprimirTextoFiscalInterna(Library& library, std::string_view text) {
  return Operate(library, Call("EP_ImprimirTextoFiscal", {text}),
                 " - Comando : EP_ImprimirTextoFiscal", Command('A').Field(text));
}

}  // namespace kestra
