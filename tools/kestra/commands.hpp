#pragma once

#include "command.hpp"
#include "console.hpp"

namespace kestra::tool {

Exit RunStatus(const Request& request, Console& console);
Exit RunRelay(const Request& request, Console& console);
Exit RunLog(const Request& request, Console& console);

}  // namespace kestra::tool
