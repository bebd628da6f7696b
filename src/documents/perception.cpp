#include "documents/perception.hpp"

#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {

std::int32_t EspecificarPercepcionGlobal(Biblioteca& k, const char* descripcion, double monto,
                                         double iva, const char* calificador) {
  const auto& estado = k.estado;
  const auto texto = LeerCadena(descripcion, 20);
  const auto importe = CampoNumero(k, monto, {estado.EntPercepcion, estado.DecPercepcion});
  const auto tasa = CampoNumero(k, iva, {estado.EntIVA, estado.DecIVA});
  const auto letra = LeerCadena(calificador, 1);
  const auto llamada = Llamada("EP_EspecificarPercepcionGlobal", {texto, importe, tasa, letra});
  if (!Confirmar(k, llamada)) return kFracaso;
  EscribirLog(k, " - Comando : EP_EspecificarPercepcionGlobal");
  if (letra != "I" && letra != "O") return MandarAnterior(k);
  return Mandar(k, Comando('f').Campo(texto).Campo(letra).Campo(importe).Campo(tasa));
}

}  // namespace kestra
