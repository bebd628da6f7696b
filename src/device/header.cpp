#include "device/header.hpp"

#include <string>

#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kLargoEncabezado = 120;
// Before a text: double width.
constexpr char kDobleAncho = '\xF4';

}  // namespace

std::int32_t SetEncabezado(Biblioteca& k, const char* texto, std::int32_t linea,
                           std::int32_t atributo) {
  const auto& estado = k.estado;
  const auto largo = LargoSegunFamilia(estado, estado.LonEncabezadoT, estado.LonEncabezadoF);
  auto campo = Limpiar(estado, CampoTexto(k, LeerCadena(texto, kLargoEncabezado), largo));
  if (atributo == 1) campo = kDobleAncho + std::string(Recortar(campo));
  return Operar(k, Llamada("EP_SetEncabezado", {campo, std::to_string(linea)}),
                " - Comando : EP_SetEncabezado", Comando(']').Campo(linea).Campo(campo));
}

std::int32_t GetEncabezado(Biblioteca& k, char* resultado, std::int32_t linea) {
  if (!Confirmar(k, Llamada("EP_GetEncabezado", {std::to_string(linea)}))) return kFracaso;
  EscribirLog(k, " - Comando : EP_GetEncabezado");
  const auto exito = Mandar(k, Comando('^').Campo(linea));
  DevolverCadena(resultado, Fijar(k.estado.Respuesta[1], kLargoEncabezado), kLargoEncabezado);
  return exito;
}

}  // namespace kestra
