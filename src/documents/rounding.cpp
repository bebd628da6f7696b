#include "documents/rounding.hpp"

#include <array>
#include <string>

#include "documents/document_kinds.hpp"
#include "fields/integer_text.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

// How long a round whose question failed holds the next one up: without a printer the rounds would
// follow each other at once.
constexpr std::int32_t kDescansoMs = 500;

constexpr std::string_view kAjuste = "Ajuste por redondeo";
// Kept as is: the capital R stands on the invoice's downward line alone.
constexpr std::string_view kAjusteConMayuscula = "Ajuste por Redondeo";

Comando SubirFactura(std::string_view diferencia) {
  return Comando('f').Campo(kAjuste).Campo("O").Campo(diferencia).Campo("0000");
}
Comando BajarFactura(std::string_view diferencia) {
  return Comando('d').Campo(kAjusteConMayuscula).Campo(diferencia).Campo("D");
}
Comando SubirTicket(std::string_view diferencia) {
  return Comando('D').Campo(kAjuste).Campo(diferencia).Campo("R");
}
Comando BajarTicket(std::string_view diferencia) {
  return Comando('D').Campo(kAjuste).Campo(diferencia).Campo("D");
}

struct Ajustador {
  std::string_view familia;
  char subtotal;
  bool separar_otra_vez;  // the ticket's round splits the raw answer anew
  Comando (*subir)(std::string_view);
  Comando (*bajar)(std::string_view);
};
constexpr std::array kAjustadores = {
    Ajustador{kFamiliaTicketFactura, kSubtotal.factura, false, SubirFactura, BajarFactura},
    Ajustador{kFamiliaTicket, kSubtotal.ticket, true, SubirTicket, BajarTicket},
};

struct Lectura {
  double total;  // the printer's running total
  bool respondida;
};

Lectura LeerTotal(Biblioteca& k, const Ajustador& ajustador) {
  const auto comando = Comando(ajustador.subtotal).Campo("N").Campo({&kCampoVacio, 1});
  const bool respondida = Mandar(k, comando) == kExito;
  if (ajustador.separar_otra_vez) SepararRespuesta(k);
  const auto& respuesta = k.estado.Respuesta;
  const double total = ANumeroReal(respuesta[2]) / 100;
  // Two more fields must be numbers, although nothing is done with them.
  ANumeroReal(respuesta[3]);
  ANumeroReal(respuesta[7]);
  return {total, respondida};
}

void Igualar(Biblioteca& k, const Ajustador& ajustador, double total) {
  while (true) {
    const auto [impreso, respondida] = LeerTotal(k, ajustador);
    if (total > impreso) Mandar(k, ajustador.subir(DigitosDeCentesimos(total - impreso)));
    if (total < impreso) Mandar(k, ajustador.bajar(DigitosDeCentesimos(impreso - total)));
    if (total == impreso) return;
    if (!respondida) k.platform.GetClock().Sleep(kDescansoMs);
  }
}

}  // namespace

void AjustarRedondeo(Biblioteca& k, double total) {
  if (k.estado.AjusteRedondeo != 1) return;
  const double redondeado = RedondearCentesimos(total);
  EscribirLog(k, " - Comando : AjusteRedondeo");
  for (const auto& ajustador : kAjustadores) {
    if (k.estado.TipoComprobante == ajustador.familia) Igualar(k, ajustador, redondeado);
  }
}

}  // namespace kestra
