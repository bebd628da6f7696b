#include "state/log.hpp"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

#include "base/ansi.hpp"
#include "state/library.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

// Before a line that would make the file larger than LogMaximo. One that cannot be set aside goes on growing.
void KeepSmall(Library& library, std::string_view file, std::size_t line) noexcept {
  const auto limit = library.certainty.settings.LogMaximo;
  if (limit <= 0) return;
  const auto most = static_cast<std::uint64_t>(limit);
  try {
    library.platform.GetLog().SetAside(file, most >= line ? most - line + 1 : 1);
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace

void EscribirLog(Library& library, std::string_view text, std::string_view file) noexcept {
  if (library.state.LogComandos != 1) return;
  try {
    auto& clock = library.platform.GetClock();
    auto line = "[" + clock.ShortDate() + "-" + clock.TimeText() + "]";
    line.append(text).append("\r\n");
    KeepSmall(library, file, line.size());
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
