#include "platform/seam/port_fault.hpp"

#include <array>
#include <cstddef>

#include "base/ansi.hpp"

namespace kestra {
namespace {

struct Row {
  PortFault fault;
  std::int32_t number;
  std::string_view before;  // the words before the device's name
  std::string_view after;
};

constexpr std::array kRows = {
    Row{PortFault::kBadNumber, 8002, "El puerto "_ansi, " no es válido (1 a 256)"_ansi},
    Row{PortFault::kBadSettings, 380, "La configuración de puerto "_ansi, " no es válida"_ansi},
    Row{PortFault::kMissing, 8015, "No existe el dispositivo "_ansi, ""_ansi},
    Row{PortFault::kNoHardware, 8015, "No hay un puerto serie en "_ansi, ""_ansi},
    Row{PortFault::kNotSerial, 8015, ""_ansi, " no es un puerto serie"_ansi},
    Row{PortFault::kNotPermitted, 8015, "Sin permiso para abrir "_ansi, ""_ansi},
    Row{PortFault::kBusy, 8005, "El dispositivo "_ansi, " está en uso por otro programa"_ansi},
    Row{PortFault::kCannotOpen, 8015, "No se pudo abrir "_ansi, ""_ansi},
    Row{PortFault::kAlreadyOpen, 8005, "El dispositivo "_ansi, " ya está abierto"_ansi},
    Row{PortFault::kNotOpen, 8012, "El dispositivo "_ansi, " no está abierto"_ansi},
    Row{PortFault::kLost, 8020, "Se perdió la conexión con "_ansi, ""_ansi},
    Row{PortFault::kStalled, 8020, "El dispositivo "_ansi, " no acepta datos"_ansi},
    Row{PortFault::kTransfer, 8020, "Error de lectura o escritura en "_ansi, ""_ansi},
    Row{PortFault::kBadAddress, 380, "La dirección "_ansi,
        " no es válida (tcp:EQUIPO:PUERTO)"_ansi},
    Row{PortFault::kUnknownHost, 8015, "No se conoce el equipo de "_ansi, ""_ansi},
    Row{PortFault::kRefused, 8015, "Nadie atiende en "_ansi, ""_ansi},
    Row{PortFault::kNoAnswer, 8015, "No responde "_ansi, ""_ansi},
    Row{PortFault::kUnreachable, 8015, "No hay camino hasta "_ansi, ""_ansi},
    Row{PortFault::kTurnedAway, 8020, ""_ansi,
        " cortó la conexión sin contestar: se perdió o está en uso por otro programa"_ansi},
};

constexpr bool RowsAreInOrder() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (static_cast<std::size_t>(kRows[i].fault) != i) return false;
  }
  return kRows.size() == static_cast<std::size_t>(PortFault::kTurnedAway) + 1;
}
static_assert(RowsAreInOrder(), "one row per fault, in the order of the faults");

}  // namespace

Failure PortFailure(PortFault fault, std::string_view device) {
  const Row& row = kRows[static_cast<std::size_t>(fault)];
  return {row.number, std::string(row.before).append(device).append(row.after), PortReason(fault)};
}

Failure PortFailure(PortFault fault, std::string_view device, int system_error) {
  const Failure plain = PortFailure(fault, device);
  return {plain.Number(),
          plain.Description() + " (error " + std::to_string(system_error) + " del sistema)",
          plain.Reason()};
}

}  // namespace kestra
