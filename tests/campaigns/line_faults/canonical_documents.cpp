#include "campaigns/line_faults/canonical_documents.hpp"

#include <array>

namespace kestra::line_faults {
namespace {

using impresora::Family;

// clang-format off
const std::array<CanonicalDocument, 15>& Documents() {
  static const std::array<CanonicalDocument, 15> documents{{
      {"TQ ticket", Family::kTicket, {{"TipoComprobante", "TQ"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "B" "" "" "" "" "F" "" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Cafe molido" 2 1500 21 0 "Tostado" "" "")",
        R"(EP_ImprimirItem "Pan" 1 800.5 10.5 0 "" "" "")",
        R"(EP_DescuentoGeneral "Descuento" 100)",
        R"(EP_ImprimirPago "Efectivo" 5000)",
        R"(EP_CerrarComprobanteFiscal "FC" "B" out)"}},
      {"TQ ticket, voided and cancelled", Family::kTicket, {{"TipoComprobante", "TQ"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "B" "" "" "" "" "F" "" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Cafe molido" 2 1500 21 0 "" "" "")",
        R"(EP_AnularItem "Cafe molido" 2 1500 21 0 "" "" "")",
        R"(EP_Cancelar)"}},
      {"TF ticket-invoice A", Family::kTicketInvoice, {{"TipoComprobante", "TF"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "A" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Resma A4" 10 320 21 0 "Caja cerrada" "" "")",
        R"(EP_RecargoGeneral "Envio" 150)",
        R"(EP_EspecificarPercepcionGlobal "Percepcion IIBB" 150 0 "O")",
        R"(EP_ImprimirPago "Transferencia" 20000)",
        R"(EP_CerrarComprobanteFiscal "FC" "A" out)"}},
      {"TF ticket-invoice B", Family::kTicketInvoice, {{"TipoComprobante", "TF"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "B" "Juan Perez" "" "DNI" "12345678" "F" "" "" "" "" "" 1)",
        R"(EP_ImprimirTextoFiscal "Oferta de la semana")",
        R"(EP_ImprimirTextoFiscalInterna "Llevando dos")",
        R"(EP_ImprimirItem "Diccionario" 1 4500 10.5 0 "" "" "")",
        R"(EP_CerrarComprobanteFiscal "FC" "B" out)"}},
      {"TF credit note A", Family::kTicketInvoice, {{"TipoComprobante", "TF"}}, {
        R"(EP_AbrirComprobanteFiscal "NC" "A" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Diccionario" 1 4500 10.5 0 "Devolucion" "" "")",
        R"(EP_CerrarComprobanteFiscal "NC" "A" out)"}},
      {"FC invoice A, space asked for", Family::kForm, {{"TipoComprobante", "FC"}, {"UtilizaTransporte", "1"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "A" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 2)",
        R"(EP_ImprimirItem "Resma A4" 10 320 21 0 "" "" "")",
        R"(EP_ImprimirItem "Resma A4" -1 320 21 0 "" "" "")",
        R"(EP_ImprimirPago "Cheque" 4000)",
        R"(EP_CerrarComprobanteFiscal "FC" "A" out)"}},
      {"FC debit note B", Family::kForm, {{"TipoComprobante", "FC"}}, {
        R"(EP_AbrirComprobanteFiscal "ND" "B" "Juan Perez" "" "DNI" "12345678" "F" "" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Intereses" 1 250 21 0 "" "" "")",
        R"(EP_CerrarComprobanteFiscal "ND" "B" out)"}},
      {"FC credit note A", Family::kForm, {{"TipoComprobante", "FC"}}, {
        R"(EP_AbrirComprobanteNoFiscalHomologado "NC" "A" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Resma A4" 1 320 21 0 "" "" "")",
        R"(EP_CerrarComprobanteNoFiscalHomologado "NC" "A")"}},
      {"FC delivery note", Family::kForm, {{"TipoComprobante", "FC"}}, {
        R"(EP_AbrirComprobanteNoFiscalHomologado "RT" "R" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Resma A4" 10 0 0 0 "" "" "")",
        R"(EP_CerrarComprobanteNoFiscalHomologado "RT" "R")"}},
      {"FC voucher", Family::kForm, {{"TipoComprobante", "FC"}}, {
        R"(EP_AbrirComprobanteNoFiscalHomologado "CT" "X" "Libreria Sur" "" "CUIT" "30000000007" "I" "Belgrano 1234" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Vale" 1 100 21 0 "" "" "")",
        R"(EP_CerrarComprobanteNoFiscalHomologado "CT" "X")"}},
      {"Non-fiscal page", Family::kTicket, {{"TipoComprobante", "TQ"}}, {
        R"(EP_AbrirComprobanteNoFiscal)",
        R"(EP_ImprimirTextoNoFiscal "Retirar por deposito")",
        R"(EP_CerrarComprobanteNoFiscal)",
        R"(EP_AbrirCajonDeDinero 1)"}},
      {"TQ ticket, rounded", Family::kTicket, {{"TipoComprobante", "TQ"}, {"AjusteRedondeo", "1"}}, {
        R"(EP_AbrirComprobanteFiscal "FC" "B" "" "" "" "" "F" "" "" "" "" "" 1)",
        R"(EP_ImprimirItem "Pan" 3 333.33 21 0 "" "" "")",
        R"(EP_AjusteRedondeo 1000)",
        R"(EP_CerrarComprobanteFiscal "FC" "B" out)"}},
      {"X and Z reports, clock, counters", Family::kTicketInvoice, {{"TipoComprobante", "TF"}}, {
        R"(EP_ObtenerFechaHora out)",
        R"(EP_ReporteX)",
        R"(EP_ReporteZ)",
        R"(EP_ReporteZporNumeros 1 1 0)",
        R"(EP_Numeracion out)",
        R"(EP_ValoresModelo out)"}},
      {"Header, clock, paper, model", Family::kTicketInvoice, {{"TipoComprobante", "TF"}}, {
        R"(EP_SetEncabezado "Gracias por su compra" 11 1)",
        R"(EP_GetEncabezado out 11)",
        R"(EP_CambiarFechaHora "261121" "103000")",
        R"(EP_ReporteZporFechas "261101" "261121" 0)",
        R"(EP_AvanzaPapel 3)",
        R"(EP_CortaPapel)",
        R"(EP_AutodetectarModelo out)"}},
      {"A closing that is refused", Family::kTicket, {{"TipoComprobante", "TQ"}}, {
        R"(EP_CerrarComprobanteFiscal "FC" "B" out)"}},
  }};
  return documents;
}
// clang-format on

}  // namespace

std::span<const CanonicalDocument> CanonicalDocuments() {
  return Documents();
}

}  // namespace kestra::line_faults
