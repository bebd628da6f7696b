#pragma once

#include <span>

#include "commands/command.hpp"

namespace impresora {

// The commands of each file of this folder.
std::span<const CommandRow> DeviceCommands();
std::span<const CommandRow> DocumentCommands();
std::span<const CommandRow> ItemCommands();
std::span<const CommandRow> NonFiscalCommands();
std::span<const CommandRow> ReportCommands();
std::span<const CommandRow> TotalsCommands();

}  // namespace impresora
