#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "kestra/kestra.h"

namespace kestra::unit {

// What a host passes, by the kind of the argument.
struct Arguments {
  const char* text = nullptr;  // for every text; as long as the longest, or null
  char* buffer = nullptr;      // for every result
  double amount = 0;
  std::int32_t count = 0;
};

template <typename Argument>
Argument Pick(const Arguments& arguments) {
  if constexpr (std::is_same_v<Argument, const char*>) {
    return arguments.text;
  } else if constexpr (std::is_same_v<Argument, char*>) {
    return arguments.buffer;
  } else if constexpr (std::is_same_v<Argument, double>) {
    return arguments.amount;
  } else if constexpr (std::is_same_v<Argument, std::int32_t>) {
    return arguments.count;
  } else {
    return nullptr;
  }
}

template <typename... Parameters>
std::int32_t Invoke(std::int32_t(KESTRA_CALL* function)(Parameters...),
                    const Arguments& arguments) {
  return function(Pick<Parameters>(arguments)...);
}

// Does the call reach for the printer, for the port alone, or for nothing at all?
enum class Nature { kOperation, kLifetime, kFixed, kComponents };

struct Export {
  std::string_view name;
  Nature nature;
  std::int32_t (*call)(const Arguments& arguments);
};

template <auto Function>
constexpr Export Exported(std::string_view name, Nature nature) {
  return {name, nature, [](const Arguments& arguments) { return Invoke(Function, arguments); }};
}

#define OPERATION(name) Exported<&(name)>(#name, Nature::kOperation)
#define FIXED(name) Exported<&(name)>(#name, Nature::kFixed)
#define COMPONENTS(name) Exported<&(name)>(#name, Nature::kComponents)

inline constexpr std::array kExports{
    Exported<&EP_Init>("EP_Init", Nature::kLifetime),
    Exported<&EP_Kill>("EP_Kill", Nature::kLifetime),
    OPERATION(EP_AbrirComprobanteFiscal),
    OPERATION(EP_ImprimirItem),
    OPERATION(EP_AnularItem),
    OPERATION(EP_ImprimirTextoFiscal),
    OPERATION(EP_ImprimirTextoFiscalInterna),
    OPERATION(EP_CerrarComprobanteFiscal),
    OPERATION(EP_Cancelar),
    OPERATION(EP_DescuentoGeneral),
    OPERATION(EP_RecargoGeneral),
    OPERATION(EP_EspecificarPercepcionGlobal),
    OPERATION(EP_ImprimirPago),
    OPERATION(EP_AjusteRedondeo),
    OPERATION(EP_AbrirComprobanteNoFiscalHomologado),
    OPERATION(EP_CerrarComprobanteNoFiscalHomologado),
    OPERATION(EP_AbrirComprobanteNoFiscal),
    OPERATION(EP_ImprimirTextoNoFiscal),
    OPERATION(EP_CerrarComprobanteNoFiscal),
    OPERATION(EP_ReporteX),
    OPERATION(EP_ReporteZ),
    OPERATION(EP_ReporteZporNumeros),
    OPERATION(EP_ReporteZporFechas),
    OPERATION(EP_AbrirCajonDeDinero),
    OPERATION(EP_CambiarFechaHora),
    OPERATION(EP_ObtenerFechaHora),
    OPERATION(EP_SetEncabezado),
    OPERATION(EP_GetEncabezado),
    OPERATION(EP_CortaPapel),
    OPERATION(EP_AvanzaPapel),
    OPERATION(EP_ValoresModelo),
    OPERATION(EP_Numeracion),
    OPERATION(EP_AutodetectarModelo),
    FIXED(EP_Chequear_Error),
    FIXED(EP_ReimprimirComprobante),
    FIXED(EP_Configuracion),
    FIXED(EP_ConsultaMemoria),
    FIXED(EP_Copias),
    FIXED(EP_ImpuestoInternoFijo),
    FIXED(EP_ImpuestoInternoPorMonto),
    FIXED(EP_InformacionRemito),
    FIXED(EP_Inicializacion),
    FIXED(EP_Memoria),
    FIXED(EP_DescuentoUltimoItem),
    FIXED(EP_ImprimirItemEnRemito),
    FIXED(EP_DatosCliente),
    COMPONENTS(DllRegisterServer),
    COMPONENTS(DllUnregisterServer),
    COMPONENTS(DllGetClassObject),
    COMPONENTS(DllCanUnloadNow),
};
#undef COMPONENTS
#undef FIXED
#undef OPERATION

// What a host gets for a call that is turned away or fails: an adjustment always says success, and
// the start-up's failure is zero.
constexpr std::int32_t FailedResult(const Export& exported) {
  if (exported.nature == Nature::kOperation) return exported.name == "EP_AjusteRedondeo" ? 0 : 1;
  return 0;
}

}  // namespace kestra::unit
