#include "device/operations.hpp"

#include <string>

#include "operation/operation.hpp"

namespace kestra {

std::int32_t CortaPapel(Library& library) {
  return Run(
      library,
      {.call = "EP_CortaPapel()", .log = " - Comando : EP_CortaPapel()", .command = Command('K')});
}

std::int32_t AvanzaPapel(Library& library, std::int16_t lines) {
  return Run(library, {.call = "EP_AvanzaPapel()",
                       .log = " - Comando : EP_AvanzaPapel()",
                       .command = Command('R').Field(lines)});
}

std::int32_t AbrirCajonDeDinero(Library& library, std::int32_t drawer) {
  // Kept as is: both drawers open by the same command, and there is no log line.
  Operation operation{.call = Call("EP_AbrirCajonDeDinero", {std::to_string(drawer)})};
  if (drawer == 1 || drawer == 2) operation.command = Command('{');
  return Run(library, operation);
}

}  // namespace kestra
