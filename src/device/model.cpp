#include "device/model.hpp"

#include <string>

#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kLargoValores = 64;
constexpr std::int32_t kLargoModelo = 14;
constexpr std::size_t kCamposDelModelo = 11;

Comando ConsultaDeModelo() {
  return Comando('*').Campo("P");
}

}  // namespace

std::int32_t ValoresModelo(Biblioteca& k, char* resultado) {
  if (!ObtenerEstado(k)) return kFracaso;
  const auto exito = Mandar(k, ConsultaDeModelo());
  SepararRespuesta(k);
  std::string valores;
  for (std::size_t i = 0; i < kCamposDelModelo; ++i) valores += k.estado.Respuesta[i];
  DevolverCadena(resultado, Fijar(valores, kLargoValores), kLargoValores);
  return exito;
}

std::int32_t AutodetectarModelo(Biblioteca& k, char* resultado) {
  if (!Confirmar(k, "AutodetectarModelo()")) return kFracaso;
  EscribirLog(k, " - Comando : EP_AutodetectarModelo()");
  const auto exito = Mandar(k, ConsultaDeModelo());
  DevolverCadena(resultado, Fijar(k.estado.Respuesta[kCamposDelModelo - 1], kLargoModelo),
                 kLargoModelo);
  return exito;
}

}  // namespace kestra
