#include "documents/fiscal_text.hpp"

#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {

std::int32_t ImprimirTextoFiscal(Biblioteca& k, const char* texto) {
  return ImprimirTextoFiscalInterna(k, Limpiar(k.estado, LeerCadena(texto, 26)));
}

std::int32_t ImprimirTextoFiscalInterna(Biblioteca& k, std::string_view texto) {
  return Operar(k, Llamada("EP_ImprimirTextoFiscal", {texto}),
                " - Comando : EP_ImprimirTextoFiscal", Comando('A').Campo(texto));
}

}  // namespace kestra
