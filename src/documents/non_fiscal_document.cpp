#include "documents/non_fiscal_document.hpp"

#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {

std::int32_t AbrirComprobanteNoFiscal(Biblioteca& k) {
  return Operar(k, "EP_AbrirComprobanteNoFiscal()", " - Comando : EP_AbrirComprobanteNoFiscal()",
                Comando('H'));
}

std::int32_t ImprimirTextoNoFiscal(Biblioteca& k, const char* texto) {
  const auto& estado = k.estado;
  const auto largo = LargoSegunFamilia(estado, estado.LonTextoNoFiscalT, estado.LonTextoNoFiscalF);
  const auto campo = Limpiar(estado, CampoTexto(k, LeerCadena(texto, 120), largo));
  return Operar(k, Llamada("EP_ImprimirTextoNoFiscal", {campo}),
                " - Comando : EP_ImprimirTextoNoFiscal()", Comando('I').Campo(campo));
}

std::int32_t CerrarComprobanteNoFiscal(Biblioteca& k) {
  return Operar(k, "EP_CerrarComprobanteNoFiscal()", " - Comando : EP_CerrarComprobanteNoFiscal()",
                Comando('J').Campo("T"));
}

}  // namespace kestra
