#include "documents/document_kinds.hpp"
#include "documents/fiscal_document.hpp"
#include "frame/command_log.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

std::int32_t AbrirTicket(Biblioteca& k, const TipoFiscal& tipo, std::string_view letra) {
  if (letra != "B" && letra != "C") {
    k.platform.GetOperator().Message("Solo pueden emitirse Comprobantes Ticket a Consumidor Final",
                                     "", kBoxOk);
    return kFracaso;
  }
  return Mandar(k, Comando(kAbrir.ticket).Campo(tipo.al_abrir));
}

}  // namespace

std::int32_t AbrirComprobanteFiscal(Biblioteca& k, const ArgumentosDeApertura& argumentos) {
  k.estado.UltimoError = 0;
  auto apertura = PrepararApertura(k, argumentos);
  PonerCopias(apertura);
  // Kept as is: the second line of the name never reaches the printer.
  apertura.linea2 = " ";
  if (!Confirmar(k, PreguntaDeApertura("EP_AbrirComprobanteFiscal", apertura))) return kFracaso;
  PonerDomicilio(apertura);

  const auto* tipo = BuscarTipoFiscal(k.estado.TipoComprobante, apertura.tipo);
  if (tipo == nullptr) return kFracaso;
  EscribirLog(k, tipo->registro);
  if (tipo->familia == kFamiliaTicket) return AbrirTicket(k, *tipo, apertura.letra);
  if (tipo->al_abrir == kSinLetra) return kFracaso;
  return Mandar(k, ComandoDeApertura(k.estado, apertura,
                                     {.letra_de_tipo = tipo->al_abrir,
                                      .copias_del_host = tipo->copias_del_host,
                                      .campo_5 = tipo->campo_5,
                                      .iva_emisor = "I",
                                      .campo_13 = tipo->campo_13}));
}

}  // namespace kestra
