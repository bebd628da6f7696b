#include "frame/startup.hpp"

#include <limits>

#include "fields/integer_text.hpp"
#include "frame/command_log.hpp"
#include "frame/configuration.hpp"
#include "frame/fiscal_ini.hpp"
#include "frame/library.hpp"

namespace kestra {
namespace {

// What the printer model decides, over whatever the file says.
void AplicarModelo(Estado& estado) {
  if (estado.ModeloNombre == "TM-U220") {
    estado.DisposicionModelo = {33, 26, 0, 0};
    estado.EmiteRTO = 0;
    estado.EmiteCRE = 1;
    estado.EmiteFAC = 1;
  } else {
    estado.DisposicionModelo = {20, 20, 20, 20};
    estado.EmiteRTO = 1;
    estado.EmiteCRE = 1;
  }
}

std::int16_t NumeroDePuerto(std::int32_t puerto) {
  if (puerto > std::numeric_limits<std::int16_t>::max() ||
      puerto < std::numeric_limits<std::int16_t>::min()) {
    throw Desbordamiento();
  }
  return static_cast<std::int16_t>(puerto);
}

void ConfigurarPuerto(Biblioteca& k) {
  k.estado.Puerto.reset();
  PortSettings ajustes;
  ajustes.dispositivo = LeerValorIni(k, "ImpresoraDispositivo");
  // The number says nothing where a device is named.
  if (ajustes.dispositivo.empty()) ajustes.CommPort = NumeroDePuerto(k.estado.ImpresoraPuerto);
  ajustes.Handshaking = 0;
  ajustes.Settings = k.estado.ImpresoraConfig + ",N,8,1";
  ajustes.InputMode = 0;
  k.estado.Puerto = k.platform.CreatePort(ajustes);
}

// For where another failure is on its way already, or nobody to hear of one.
template <typename Accion>
void EnSilencio(Accion accion) noexcept {
  try {
    accion();
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

void Preparar(Biblioteca& k) {
  k.platform.BeginStartUp();
  try {
    Lee_Ini(k);
    AplicarModelo(k.estado);
    ConfigurarPuerto(k);
  } catch (...) {
    // A start that fails leaves nothing registered either.
    EnSilencio([&] { k.platform.EndStartUp(); });
    throw;
  }
  k.platform.EndStartUp();
}

}  // namespace

std::int32_t Init(Biblioteca& k) {
  try {
    Preparar(k);
    return 1;
  } catch (const Falla& falla) {
    RegistrarFalla(k, falla, "EP_Init");
    return 0;
  }
}

void Kill(Biblioteca& k) {
  k.estado.Puerto.reset();
  k.platform.ShutDown();
}

void SoltarAbandonado(Biblioteca& k) noexcept {
  EnSilencio([&] {
    const auto& puerto = k.estado.Puerto;
    if (puerto != nullptr && puerto->PortOpen()) puerto->PortOpen(false);
  });
  EnSilencio([&] { k.platform.EndStartUp(); });
}

}  // namespace kestra
