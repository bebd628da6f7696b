#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "base/boolean.hpp"
#include "platform/seam/platform.hpp"
#include "platform/seam/serial_port.hpp"
#include "state/certainty.hpp"
#include "state/text_settings.hpp"

namespace kestra {

// Everything the library remembers between calls. The configuration fields carry the names of their
// keys in Fiscal.ini.
struct State {
  std::int32_t ImpresoraPuerto = 0;
  std::string ImpresoraConfig;
  std::string ModeloNombre;
  std::string TipoComprobante;  // 2 characters
  std::string TipoIVA;          // 1 character
  std::int32_t CanDecimales = 0;
  std::int32_t CanMaxima = 0;
  std::int32_t LonObsFac = 0;
  std::int32_t LonLinFac = 0;
  std::int32_t LonPagFac = 0;
  std::int32_t LonLinNoF = 0;
  std::int32_t LonLinPag = 0;
  std::int32_t ErrorMostrar = 0;
  std::int32_t MostrarComandos = 0;
  std::int32_t MostrarRespuestas = 0;
  std::int32_t LogComandos = 0;
  std::int32_t EmiteTIC = 0;
  std::int32_t EmiteTIF = 0;
  std::int32_t EmiteFAC = 0;
  std::int32_t EmiteRTO = 0;
  std::int32_t EmitePAG = 0;
  std::int32_t EmiteCRE = 0;
  std::int32_t EmiteDEB = 0;
  std::int32_t LonDescripcionF = 0;
  std::int32_t LonTextoFiscalF = 0;
  std::int32_t LonEncabezadoF = 0;
  std::int32_t LonTextoNoFiscalF = 0;
  std::int32_t LonDatosClienteF = 0;
  std::int32_t LonDescripcionT = 0;
  std::int32_t LonTextoFiscalT = 0;
  std::int32_t LonEncabezadoT = 0;
  std::int32_t LonTextoNoFiscalT = 0;
  std::int32_t LonDatosClienteT = 0;
  std::int32_t UtilizaTransporte = 0;
  std::int32_t DelayComandos = 0;
  std::int16_t EntCantidad = 0;
  std::int16_t DecCantidad = 0;
  std::int16_t EntPrecio = 0;
  std::int16_t DecPrecio = 0;
  std::int16_t EntDesc = 0;
  std::int16_t DecDesc = 0;
  std::int16_t EntIVA = 0;
  std::int16_t DecIVA = 0;
  std::int16_t EntImpInt = 0;
  std::int16_t DecImpInt = 0;
  std::int16_t EntPercepcion = 0;
  std::int16_t DecPercepcion = 0;
  std::int16_t IncluirPuntoPrecio = 0;
  std::int16_t CPI = 0;
  std::int32_t Transporte = 0;
  std::int32_t AjusteRedondeo = 0;
  std::int32_t QuitarCaracNoValidos = 0;
  // Layout of the printer model; set at start-up, read by no operation yet.
  std::array<std::int32_t, 4> DisposicionModelo{};

  std::unique_ptr<SerialPort> Puerto;
  std::int32_t UltimoError = 0;
  Boolean EnviaComando = kFalse;
  std::string ComandoActual;
  std::string RespuestaActual;
  std::int16_t NroSecuencia = 0;
  std::int16_t NroSecuenciaAnterior = 0;
  Boolean Reintentar = kFalse;
  std::string EstadoImpresora;
  std::string EstadoFiscal;
  Flags BitImpresora{};
  Flags BitFiscal{};
  std::string Respuestas;
  std::string RespuestaCompleta;
  std::array<std::string, 13> Respuesta;  // Respuesta[0] is Respuesta_1
};

// EP_Chequear_Error asks without a turn.
inline std::atomic_ref<std::int32_t> LastError(State& state) {
  return std::atomic_ref(state.UltimoError);
}

// The library: its state and the world it works in. Every routine gets it from its caller; only the
// exported functions know the one that serves the process.
struct Library {
  explicit Library(Platform& world) : platform(world) {}

  State state;
  Certainty certainty;
  TextSettings texts;
  Platform& platform;
  // Whether there is a Puerto, for those who ask without a turn.
  std::atomic<bool> holds_port = false;
};

}  // namespace kestra
