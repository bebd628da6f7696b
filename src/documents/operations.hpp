#pragma once

#include <cstdint>
#include <string_view>

#include "documents/opening.hpp"
#include "state/library.hpp"

namespace kestra {

std::int32_t AbrirComprobanteFiscal(Library& library, const OpeningArguments& arguments);
std::int32_t ImprimirTextoFiscal(Library& library, const char* text);

// The same for a text of any length, sent as it is.
std::int32_t ImprimirTextoFiscalInterna(Library& library, std::string_view text);

std::int32_t CerrarComprobanteFiscal(Library& library, const char* kind, const char* letter,
                                     char* number);
std::int32_t Cancelar(Library& library);

// The arguments of the two item operations, as the host passes them.
struct ItemArguments {
  const char* description;  // 50 bytes
  double quantity;
  double price;
  double vat;
  double internal_taxes;
  const char* extra1;  // 22 bytes, as the others
  const char* extra2;
  const char* extra3;
};

std::int32_t ImprimirItem(Library& library, const ItemArguments& arguments);
std::int32_t AnularItem(Library& library, const ItemArguments& arguments);

std::int32_t DescuentoGeneral(Library& library, const char* description, double amount);
std::int32_t RecargoGeneral(Library& library, const char* description, double amount);
std::int32_t EspecificarPercepcionGlobal(Library& library, const char* description, double amount,
                                         double vat, const char* qualifier);
std::int32_t ImprimirPago(Library& library, const char* description, double amount);

// Adds lines to the open document until the printer's total is the host's.
void AjusteRedondeo(Library& library, double total);

std::int32_t AbrirComprobanteNoFiscalHomologado(Library& library,
                                                const OpeningArguments& arguments);
std::int32_t CerrarComprobanteNoFiscalHomologado(Library& library, const char* kind,
                                                 const char* mark);

std::int32_t AbrirComprobanteNoFiscal(Library& library);
std::int32_t ImprimirTextoNoFiscal(Library& library, const char* text);
std::int32_t CerrarComprobanteNoFiscal(Library& library);

}  // namespace kestra
