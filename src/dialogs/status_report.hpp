#pragma once

#include <string_view>

#include "platform/seam/operator.hpp"
#include "state/state.hpp"

namespace kestra {

// Captions of the status report dialog.
constexpr std::string_view kReportTitle = "Error al ejecutar comando fiscal";
constexpr std::string_view kReportPrinterGroup = "Estado Impresora";
constexpr std::string_view kReportFiscalGroup = "Estado Fiscal";
constexpr std::string_view kReportStatusGroup = "Estados";
constexpr std::string_view kReportPrinter = "Impresora:";
constexpr std::string_view kReportFiscal = "Fiscal:";
constexpr std::string_view kCloseButton = "Cerrar";
constexpr std::string_view kRetryButton = "Reintentar";

// The report on the answer decoded last: every row, lit or greyed.
Report BuildReport(const State& state);

}  // namespace kestra
