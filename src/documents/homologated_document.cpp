#include "documents/homologated_document.hpp"

#include <array>

#include "documents/closing.hpp"
#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

struct TipoHomologado {
  std::string_view familia;
  std::string_view tipo;
  std::string_view registro;
  std::string_view letra;
  bool copias_del_host;  // else "1"
  std::string_view campo_5;
};
constexpr std::array kAperturas = {
    TipoHomologado{"FC", "NC", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/NC)", "N",
                   true, "F"},
    TipoHomologado{"FC", "RT", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/RT)", "E",
                   true, "F"},
    TipoHomologado{"FC", "CT", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/CT)", "C",
                   true, "F"},
    TipoHomologado{"TF", "NC", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(TF/NC)", "M",
                   false, "P"},
};

struct Cierre {
  std::string_view familia;
  std::string_view tipo;
  std::string_view letra;
};
constexpr std::array kCierres = {
    Cierre{"FC", "NC", "N"}, Cierre{"FC", "RT", "E"}, Cierre{"FC", "CT", "C"},
    Cierre{"TF", "FC", "T"}, Cierre{"TF", "ND", "D"}, Cierre{"TF", "NC", "M"},
    Cierre{"TQ", "FC", "T"},
};

}  // namespace

std::int32_t AbrirComprobanteNoFiscalHomologado(Biblioteca& k,
                                                const ArgumentosDeApertura& argumentos) {
  auto apertura = PrepararApertura(k, argumentos);
  const auto pregunta = PreguntaDeApertura("EP_AbrirComprobanteNoFiscalHomologado", apertura);
  if (!Confirmar(k, pregunta)) return kFracaso;
  PonerCopias(apertura);
  PonerDomicilio(apertura);
  const auto* tipo = BuscarFila(kAperturas, k.estado.TipoComprobante, apertura.tipo);
  if (tipo == nullptr) return kFracaso;
  EscribirLog(k, tipo->registro);
  return Mandar(k, ComandoDeApertura(k.estado, apertura,
                                     {.letra_de_tipo = tipo->letra,
                                      .copias_del_host = tipo->copias_del_host,
                                      .campo_5 = tipo->campo_5,
                                      .iva_emisor = k.estado.TipoIVA,
                                      .campo_13 = "N"}));
}

std::int32_t CerrarComprobanteNoFiscalHomologado(Biblioteca& k, const char* tipo,
                                                 const char* marca) {
  const auto clase = LeerCadena(tipo, 2);
  const auto letra = LeerCadena(marca, 1);
  const auto llamada =
      LlamadaEntreComillas("EP_CerrrarComprobanteNoFiscalHomologado", {clase, letra});
  if (!Confirmar(k, llamada)) return kFracaso;
  EscribirLog(k, " - Comando : EP_CerrarComprobanteNoFiscalHomologado");
  const auto* cierre = BuscarFila(kCierres, k.estado.TipoComprobante, clase);
  if (cierre == nullptr) return kFracaso;
  return Mandar(k, ComandoDeCierre(cierre->familia, cierre->letra, letra));
}

}  // namespace kestra
