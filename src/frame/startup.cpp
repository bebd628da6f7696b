#include "frame/startup.hpp"

#include <limits>
#include <string>

#include "base/failure.hpp"
#include "fields/number_field.hpp"
#include "frame/configuration.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

// What the printer model decides, over whatever the file says.
void ApplyModel(State& state) {
  if (state.ModeloNombre == "TM-U220") {
    state.DisposicionModelo = {33, 26, 0, 0};
    state.EmiteRTO = 0;
    state.EmiteCRE = 1;
    state.EmiteFAC = 1;
  } else {
    state.DisposicionModelo = {20, 20, 20, 20};
    state.EmiteRTO = 1;
    state.EmiteCRE = 1;
  }
}

std::int16_t PortNumber(std::int32_t port) {
  if (port > std::numeric_limits<std::int16_t>::max() ||
      port < std::numeric_limits<std::int16_t>::min()) {
    throw Overflow();
  }
  return static_cast<std::int16_t>(port);
}

// Tells those who ask without a turn what has become of the port, whether it could be made or not.
struct PortNotice {
  Library& library;
  ~PortNotice() { library.holds_port = library.state.Puerto != nullptr; }
};

// The printer goes by where it is.
std::string SetUpPort(Library& library) {
  const PortNotice notice{library};
  library.state.Puerto.reset();
  PortSettings settings;
  settings.device = library.platform.DeviceInstead();
  if (settings.device.empty()) settings.device = LeerValorIni(library, "ImpresoraDispositivo");
  // The number says nothing where a device is named.
  if (settings.device.empty()) settings.CommPort = PortNumber(library.state.ImpresoraPuerto);
  settings.Handshaking = 0;
  settings.Settings = library.state.ImpresoraConfig + ",N,8,1";
  settings.InputMode = 0;
  library.state.Puerto = library.platform.CreatePort(settings);
  return settings.device.empty() ? "COM" + std::to_string(settings.CommPort) : settings.device;
}

// For where another failure is on its way already, or nobody to hear of one.
template <typename Action>
void Quietly(Action action) noexcept {
  try {
    action();
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace

std::int32_t Init(Library& library) {
  library.platform.BeginStartUp();
  try {
    Lee_Ini(library);
    ReadAddedSettings(library);
    ApplyModel(library.state);
    OpenJournal(library, SetUpPort(library));
  } catch (...) {
    // A start that fails leaves nothing registered either.
    Quietly([&] { library.platform.EndStartUp(); });
    throw;
  }
  library.platform.EndStartUp();
  return 1;
}

void Kill(Library& library) {
  CloseJournal(library);
  library.state.Puerto.reset();
  library.holds_port = false;  // the platform may ask while it lets go
  library.platform.ShutDown();
}

void ReleaseAbandoned(Library& library) noexcept {
  Quietly([&] {
    const auto& port = library.state.Puerto;
    if (port != nullptr && port->PortOpen()) port->PortOpen(false);
  });
  Quietly([&] { library.platform.EndStartUp(); });
}

}  // namespace kestra
