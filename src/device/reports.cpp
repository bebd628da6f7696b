#include "device/reports.hpp"

#include <string>

#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

Comando ReporteDiario(std::string_view letra) {
  return Comando('9').Campo(letra).Campo("P");
}

}  // namespace

std::int32_t ReporteX(Biblioteca& k) {
  return Operar(k, "EP_ReporteX()", " - Comando : EP_ReporteX()", ReporteDiario("X"));
}

std::int32_t ReporteZ(Biblioteca& k) {
  const auto resultado =
      Operar(k, "EP_ReporteZ()", " - Comando : EP_ReporteZ()", ReporteDiario("Z"));
  // Judged by the last answer, whether or not this report was sent.
  if (k.estado.BitFiscal[kMemoriaCasiLlena] != kFalso) k.platform.GetOperator().MemoryFull();
  return resultado;
}

std::int32_t ReporteZporNumeros(Biblioteca& k, std::int32_t primero, std::int32_t ultimo,
                                std::int32_t tercero) {
  const auto desde = std::to_string(primero);
  const auto hasta = std::to_string(ultimo);
  return Operar(k, Llamada("EP_ReporteZporNumeros", {desde, hasta, std::to_string(tercero)}),
                // Kept as is: "Ep_", which readers of old logs look for.
                " - Comando : " + Llamada("Ep_ReporteZporNumeros", {desde, hasta}),
                Comando(';').Campo(desde).Campo(hasta).Campo("D"));
}

std::int32_t ReporteZporFechas(Biblioteca& k, const char* desde, const char* hasta,
                               std::int32_t tercero) {
  const auto primera = LeerCadena(desde, 6);
  const auto ultima = LeerCadena(hasta, 6);
  Operar(k, Llamada("EP_ReporteZporFechas", {primera, ultima, std::to_string(tercero)}),
         " - Comando : " + Llamada("EP_ReporteZporFechas", {primera}),
         Comando(':').Campo(primera).Campo(ultima).Campo("D"));
  // Kept as is: the result is the listing's verdict on the last answer, asked or not.
  return ListarRespuestas(k) ? kExito : kFracaso;
}

}  // namespace kestra
