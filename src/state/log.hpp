#pragma once

#include <string_view>

#include "base/failure.hpp"

namespace kestra {

struct Library;

constexpr std::string_view kLogFile = ".\\fiscal.log";

// Appends a dated line to the log when LogComandos is 1. A log that cannot be written is no reason
// to stop selling: every failure ends it in silence.
void EscribirLog(Library& library, std::string_view text,
                 std::string_view file = kLogFile) noexcept;

// " - Error 8015 (...) in procedure Enviar of Módulo ExportedProcedures - Linea: abrir"
void LogFailure(Library& library, const Failure& failure, std::string_view routine,
                std::string_view line = {});

}  // namespace kestra
