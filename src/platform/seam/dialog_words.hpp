#pragma once

#include <string_view>

#include "base/ansi.hpp"

namespace kestra {

// The words of the two dialogs, which every platform paints.

// Captions of the status report dialog.
constexpr std::string_view kReportTitle = "Error al ejecutar comando fiscal";
constexpr std::string_view kReportPrinterGroup = "Estado Impresora";
constexpr std::string_view kReportFiscalGroup = "Estado Fiscal";
constexpr std::string_view kReportStatusGroup = "Estados";
constexpr std::string_view kReportPrinter = "Impresora:";
constexpr std::string_view kReportFiscal = "Fiscal:";
constexpr std::string_view kCloseButton = "Cerrar";
constexpr std::string_view kRetryButton = "Reintentar";

// Texts of the warning that the fiscal memory is nearly full; its button is kCloseButton.
constexpr std::string_view kMemoryFullTitle = "ATENCIÓN"_ansi;
constexpr std::string_view kMemoryFullHeading = "ATENCIÓN!"_ansi;
constexpr std::string_view kMemoryFullText =
    "Restan menos de 30 (treinta) cierres Z para que la memoria fiscal se complete (memoria fiscal "
    "llena). Consulte a su técnico fiscal para prevenir un bloqueo futuro por memoria fiscal llena."_ansi;

}  // namespace kestra
