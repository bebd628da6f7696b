#include "documents/payment.hpp"

#include "documents/document_kinds.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kLargoDescripcion = 20;

}  // namespace

std::int32_t ImprimirPago(Biblioteca& k, const char* descripcion, double monto) {
  auto& estado = k.estado;
  const auto leida = LeerCadena(descripcion, 80);
  const auto importe = CampoNumero(k, monto, {estado.EntDesc, estado.DecDesc});
  const auto texto = Limpiar(estado, CampoTexto(k, leida, kLargoDescripcion));
  if (!Confirmar(k, Llamada("EP_ImprimirPago", {texto, importe}))) return kFracaso;
  EscribirLog(k, " - Comando : ImprimirPago()");
  const char byte = ByteDeFamilia(estado.TipoComprobante, kTotales);
  if (byte == '\0') return MandarAnterior(k);
  return Mandar(k, Comando(byte).Campo(texto).Campo(importe).Campo("T"));
}

}  // namespace kestra
