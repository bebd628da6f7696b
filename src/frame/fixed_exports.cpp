// Exports that old hosts still call. They do nothing and say that it went well; the count of their
// arguments is what matters.

#include "kestra/kestra.h"

int32_t KESTRA_CALL EP_ReimprimirComprobante() {
  return 0;
}

int32_t KESTRA_CALL EP_Configuracion(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_ConsultaMemoria(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_Copias(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_ImpuestoInternoFijo(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_ImpuestoInternoPorMonto(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_InformacionRemito(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_Inicializacion(int32_t /*a*/) {
  return 0;
}
int32_t KESTRA_CALL EP_Memoria(int32_t /*a*/) {
  return 0;
}

int32_t KESTRA_CALL EP_DescuentoUltimoItem(int32_t /*a*/, int32_t /*b*/, int32_t /*c*/) {
  return 0;
}

int32_t KESTRA_CALL EP_ImprimirItemEnRemito(int32_t /*a*/, int32_t /*b*/, int32_t /*c*/) {
  return 0;
}

int32_t KESTRA_CALL EP_DatosCliente(int32_t /*a*/, int32_t /*b*/, int32_t /*c*/, int32_t /*d*/,
                                    int32_t /*e*/) {
  return 0;
}
