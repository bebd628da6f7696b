#pragma once

#include <string_view>

#include "frame/state.hpp"
#include "platform/operator.hpp"

namespace kestra {

// Captions of the status report dialog.
constexpr std::string_view kInformeTitulo = "Error al ejecutar comando fiscal";
constexpr std::string_view kInformeGrupoImpresora = "Estado Impresora";
constexpr std::string_view kInformeGrupoFiscal = "Estado Fiscal";
constexpr std::string_view kInformeGrupoEstados = "Estados";
constexpr std::string_view kInformeImpresora = "Impresora:";
constexpr std::string_view kInformeFiscal = "Fiscal:";
constexpr std::string_view kBotonCerrar = "Cerrar";
constexpr std::string_view kBotonReintentar = "Reintentar";

// The report on the answer decoded last: every row, lit or greyed.
InformeEstados ArmarInforme(const Estado& estado);

}  // namespace kestra
