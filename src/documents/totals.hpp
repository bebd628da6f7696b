#pragma once

#include <cstdint>

#include "state/library.hpp"

namespace kestra {

std::int32_t DescuentoGeneral(Library& library, const char* description, double amount);
std::int32_t RecargoGeneral(Library& library, const char* description, double amount);
std::int32_t EspecificarPercepcionGlobal(Library& library, const char* description, double amount,
                                         double vat, const char* qualifier);
std::int32_t ImprimirPago(Library& library, const char* description, double amount);

// Adds lines to the open document until the printer's total is the host's.
void AjusteRedondeo(Library& library, double total);

}  // namespace kestra
