#include "state/log.hpp"

#include <exception>
#include <string>

#include "base/ansi.hpp"
#include "state/library.hpp"
#include "state/report.hpp"

namespace kestra {

void EscribirLog(Library& library, std::string_view text, std::string_view file) noexcept {
  if (library.state.LogComandos != 1) return;
  try {
    auto& clock = library.platform.GetClock();
    auto line = "[" + clock.ShortDate() + "-" + clock.TimeText() + "]";
    line.append(text).append("\r\n");
    library.platform.GetLog().Append(file, line);
  } catch (const std::exception&) {
    NoteCause(library, Cause::kLogUnwritable);
  }
}

void LogFailure(Library& library, const Failure& failure, std::string_view routine,
                std::string_view line) {
  EscribirLog(library, std::string(" - ")
                           .append(FailureText(failure))
                           .append(" in procedure ")
                           .append(routine)
                           .append(" of Módulo ExportedProcedures - Linea: "_ansi)
                           .append(line));
}

}  // namespace kestra
