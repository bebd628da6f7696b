#include "documents/discount.hpp"

#include "documents/document_kinds.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

// A discount and a surcharge are one command with another last letter.
struct LineaGeneral {
  std::string_view nombre;
  std::string_view registro;
  std::string_view calificador;
};
constexpr LineaGeneral kDescuento{"EP_DescuentoGeneral", " - Comando : EP_DescuentoGeneral", "D"};
constexpr LineaGeneral kRecargo{"EP_RecargoGeneral", " - Comando : EP_RecargoGeneral", "R"};

std::int32_t Imprimir(Biblioteca& k, const LineaGeneral& linea, const char* descripcion,
                      double monto) {
  const auto& estado = k.estado;
  // The text's length groups "TF" with "TQ", the command's byte "TF" with "FC".
  const auto texto =
      CampoTexto(k, LeerCadena(descripcion, 80),
                 LargoSegunFamilia(estado, estado.LonTextoFiscalT, estado.LonTextoFiscalF));
  const auto importe = CampoNumero(k, monto, {estado.EntDesc, estado.DecDesc});
  if (!Confirmar(k, Llamada(linea.nombre, {texto, importe}))) return kFracaso;
  EscribirLog(k, linea.registro);
  const char byte = ByteDeFamilia(estado.TipoComprobante, kTotales);
  if (byte == '\0') return MandarAnterior(k);
  return Mandar(k, Comando(byte).Campo(texto).Campo(importe).Campo(linea.calificador));
}

}  // namespace

std::int32_t DescuentoGeneral(Biblioteca& k, const char* descripcion, double monto) {
  return Imprimir(k, kDescuento, descripcion, monto);
}

std::int32_t RecargoGeneral(Biblioteca& k, const char* descripcion, double monto) {
  return Imprimir(k, kRecargo, descripcion, monto);
}

}  // namespace kestra
