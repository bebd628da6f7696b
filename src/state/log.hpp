#pragma once

#include <string_view>

#include "base/failure.hpp"

namespace kestra {

struct Library;

constexpr std::string_view kLogFile = ".\\fiscal.log";

// Appends a dated line to the log when LogComandos is 1. A log that cannot be written is no reason
// to stop selling: every failure is a cause in the report and nothing else. LogMaximo bounds the file; what
// was in it is kept once, under the name with ".1" behind it.
void EscribirLog(Library& library, std::string_view text,
                 std::string_view file = kLogFile) noexcept;

// " - Error 8015 (...) in procedure Enviar of Módulo ExportedProcedures - Linea: abrir"
void LogFailure(Library& library, const Failure& failure, std::string_view routine,
                std::string_view line = {});

}  // namespace kestra
