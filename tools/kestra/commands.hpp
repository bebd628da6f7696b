#pragma once

#include "command.hpp"
#include "console.hpp"

namespace kestra::tool {

Exit RunDiagnosis(const Request& request, Console& console);
Exit RunStatus(const Request& request, Console& console);
Exit RunCounters(const Request& request, Console& console);
Exit RunClock(const Request& request, Console& console);
Exit RunModel(const Request& request, Console& console);
Exit RunResolve(const Request& request, Console& console);
Exit RunIni(const Request& request, Console& console);

// These tell what goes over the line in the virtual printer's words: where that is not built they say where it is.
Exit RunLog(const Request& request, Console& console);
Exit RunRelay(const Request& request, Console& console);
Exit RunPrompt(const Request& request, Console& console);

}  // namespace kestra::tool
