#include "frame/command_log.hpp"

#include <exception>
#include <string>

#include "fields/ansi.hpp"
#include "frame/library.hpp"

namespace kestra {

void EscribirLog(Biblioteca& k, std::string_view texto, std::string_view archivo) noexcept {
  if (k.estado.LogComandos != 1) return;
  try {
    auto& clock = k.platform.GetClock();
    auto linea = "[" + clock.ShortDate() + "-" + clock.TimeText() + "]";
    linea.append(texto).append("\r\n");
    k.platform.GetLog().Append(archivo, linea);
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
  }
}

void RegistrarFalla(Biblioteca& k, const Falla& falla, std::string_view rutina,
                    std::string_view linea) {
  EscribirLog(k, std::string(" - ")
                     .append(TextoDeFalla(falla))
                     .append(" in procedure ")
                     .append(rutina)
                     .append(" of Módulo ExportedProcedures - Linea: "_ansi)
                     .append(linea));
}

}  // namespace kestra
