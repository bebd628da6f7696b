#pragma once

#include <array>
#include <string_view>

namespace kestra {

constexpr std::string_view kFamiliaFormulario = "FC";     // invoices on forms
constexpr std::string_view kFamiliaTicketFactura = "TF";  // invoices on roll paper
constexpr std::string_view kFamiliaTicket = "TQ";         // tickets only

// The letter of a document whose opening or closing has none.
constexpr std::string_view kSinLetra = "";

// A fiscal document that a family can issue, and what its opening tells the printer. Where parallel
// kinds differ they do so on purpose.
struct TipoFiscal {
  std::string_view familia;
  std::string_view tipo;
  std::string_view registro;     // log line of the opening
  std::string_view al_abrir;     // kind letter at the opening; kSinLetra: nothing is sent
  std::string_view al_cerrar;    // kind letter at the closing
  bool copias_del_host = false;  // else "1"
  std::string_view campo_5 = "F";
  std::string_view campo_13 = "N";
};

// Kept as is: a debit note of "TF" can be closed but not opened.
inline constexpr std::array kTiposFiscales = {
    TipoFiscal{.familia = "FC",
               .tipo = "FC",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(FC/FC)",
               .al_abrir = "F",
               .al_cerrar = "F",
               .copias_del_host = true},
    TipoFiscal{.familia = "FC",
               .tipo = "ND",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(FC/ND)",
               .al_abrir = "D",
               .al_cerrar = "D"},
    TipoFiscal{.familia = "TF",
               .tipo = "FC",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(TF/FC)",
               .al_abrir = "T",
               .al_cerrar = "T"},
    TipoFiscal{.familia = "TF",
               .tipo = "NC",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(TF/NC)",
               .al_abrir = "M",
               .al_cerrar = "M",
               .campo_5 = "P",
               .campo_13 = ""},
    TipoFiscal{.familia = "TF",
               .tipo = "ND",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(TF/ND)",
               .al_abrir = kSinLetra,
               .al_cerrar = "D"},
    TipoFiscal{.familia = "TQ",
               .tipo = "FC",
               .registro = " - Comando : EP_AbrirComprobanteFiscal(TQ/FC)",
               .al_abrir = "C",
               .al_cerrar = "T"},
};

// The row of a family and type in a table of documents; null for a pair that it has not.
template <typename Tabla>
constexpr const typename Tabla::value_type* BuscarFila(const Tabla& tabla, std::string_view familia,
                                                       std::string_view tipo) {
  for (const auto& fila : tabla) {
    if (fila.familia == familia && fila.tipo == tipo) return &fila;
  }
  return nullptr;
}

constexpr const TipoFiscal* BuscarTipoFiscal(std::string_view familia, std::string_view tipo) {
  return BuscarFila(kTiposFiscales, familia, tipo);
}

// The bytes by which the families call the same command.
struct BytesDeComando {
  char factura;  // "FC" and "TF"
  char ticket;   // "TQ"
};
constexpr BytesDeComando kAbrir{'`', '@'};
constexpr BytesDeComando kItem{'b', 'B'};
constexpr BytesDeComando kTotales{'d', 'D'};  // discount, surcharge, payment, cancel
constexpr BytesDeComando kSubtotal{'c', 'C'};
constexpr BytesDeComando kCerrar{'e', 'E'};

// The byte for a family, or 0 for a family that the printers do not have.
constexpr char ByteDeFamilia(std::string_view familia, BytesDeComando bytes) {
  if (familia == kFamiliaFormulario || familia == kFamiliaTicketFactura) return bytes.factura;
  return familia == kFamiliaTicket ? bytes.ticket : '\0';
}

}  // namespace kestra
