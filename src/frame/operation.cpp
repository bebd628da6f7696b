#include "frame/operation.hpp"

#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/failure.hpp"
#include "protocol/exchange.hpp"

namespace kestra {
namespace {

std::string Unir(std::initializer_list<std::string_view> partes, std::string_view entre) {
  std::string unido;
  bool primera = true;
  for (const auto parte : partes) {
    if (!primera) unido.append(entre);
    unido.append(parte);
    primera = false;
  }
  return unido;
}

template <typename Convertir>
std::string OVacio(Biblioteca& k, Convertir convertir) {
  try {
    return convertir();
  } catch (const Falla&) {
    k.platform.GetOperator().Message("Error al convertir", "", kBoxOk);
    return {};
  }
}

}  // namespace

std::string Llamada(std::string_view nombre, std::initializer_list<std::string_view> argumentos) {
  return std::string(nombre).append("(").append(Unir(argumentos, ",")).append(")");
}

std::string LlamadaEntreComillas(std::string_view nombre,
                                 std::initializer_list<std::string_view> argumentos) {
  return std::string(nombre).append("('").append(Unir(argumentos, "','")).append("')");
}

bool Confirmar(Biblioteca& k, std::string_view llamada) {
  auto& envia = k.estado.EnviaComando;
  envia = kVerdadero;
  if (k.estado.MostrarComandos == 1) {
    const auto respuesta = k.platform.GetOperator().Message(llamada, "Envia?", kBoxYesNoQuestion);
    envia = ABooleano(respuesta == kAnswerYes);
  }
  return envia != kFalso;
}

std::int32_t Mandar(Biblioteca& k, const Comando& comando) {
  k.estado.ComandoActual = comando.Bytes();
  return MandarAnterior(k);
}

std::int32_t MandarAnterior(Biblioteca& k) {
  return Enviar(k) == 0 ? kExito : kFracaso;
}

std::int32_t Operar(Biblioteca& k, std::string_view llamada, std::string_view registro,
                    const Comando& comando) {
  if (!Confirmar(k, llamada)) return kFracaso;
  if (!registro.empty()) EscribirLog(k, registro);
  return Mandar(k, comando);
}

bool UsaLargosT(const Estado& estado) {
  return estado.TipoComprobante == "TF" || estado.TipoComprobante == "TQ";
}

std::int32_t LargoSegunFamilia(const Estado& estado, std::int32_t largo_t, std::int32_t largo_f) {
  return UsaLargosT(estado) ? largo_t : largo_f;
}

std::string CampoNumero(Biblioteca& k, double valor, const Digitos& digitos) {
  return OVacio(k, [&] { return FormatearNumero(valor, digitos); });
}

std::string CampoTexto(Biblioteca& k, std::string_view texto, std::int32_t longitud) {
  return OVacio(k, [&] { return AjustarTexto(texto, longitud); });
}

std::string Limpiar(const Estado& estado, std::string texto) {
  return estado.QuitarCaracNoValidos == 1 ? LimpiarCaracteres(std::move(texto)) : texto;
}

}  // namespace kestra
