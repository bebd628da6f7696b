#include "device/drawer.hpp"

#include <string>

#include "operation/operation.hpp"

namespace kestra {

std::int32_t AbrirCajonDeDinero(Library& library, std::int32_t drawer) {
  const auto call = Call("EP_AbrirCajonDeDinero", {std::to_string(drawer)});
  if (!Confirm(library, call)) return kFailure;
  // Kept as is: both drawers open by the same command, and there is no log line.
  return drawer == 1 || drawer == 2 ? Send(library, Command('{')) : kFailure;
}

}  // namespace kestra
