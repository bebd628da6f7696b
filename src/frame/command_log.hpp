#pragma once

#include <string_view>

#include "frame/failure.hpp"

namespace kestra {

struct Biblioteca;

constexpr std::string_view kArchivoDeRegistro = ".\\fiscal.log";

// Appends a dated line to the log when LogComandos is 1. A log that cannot be written is no reason
// to stop selling: every failure ends it in silence.
void EscribirLog(Biblioteca& k, std::string_view texto,
                 std::string_view archivo = kArchivoDeRegistro) noexcept;

// " - Error 8015 (...) in procedure Enviar of Módulo ExportedProcedures - Linea: abrir"
void RegistrarFalla(Biblioteca& k, const Falla& falla, std::string_view rutina,
                    std::string_view linea = {});

}  // namespace kestra
