#include "hostile/call.hpp"

#include <fenv.h>

#include <algorithm>
#include <array>
#include <string>

#include "hostile/shop.hpp"
#include "hostile/values.hpp"

namespace kestra::hostile {
namespace {

constexpr int kTraps = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT;

// These go on without a printer.
constexpr std::array<std::string_view, 18> kAlwaysZero{"EP_Init",
                                                       "EP_Kill",
                                                       "EP_AjusteRedondeo",
                                                       "EP_Chequear_Error",
                                                       "EP_Configuracion",
                                                       "EP_ReimprimirComprobante",
                                                       "EP_ConsultaMemoria",
                                                       "EP_Copias",
                                                       "EP_Memoria",
                                                       "EP_ImpuestoInternoFijo",
                                                       "EP_Inicializacion",
                                                       "EP_ImpuestoInternoPorMonto",
                                                       "EP_DatosCliente",
                                                       "EP_InformacionRemito",
                                                       "EP_ImprimirItemEnRemito",
                                                       "EP_DescuentoUltimoItem",
                                                       "Kestra_DefinirOperador",
                                                       "DllCanUnloadNow"};

}  // namespace

std::int32_t CallWithTraps(const Export& row, const Values& values) {
  ::feclearexcept(FE_ALL_EXCEPT);
  ::fesetround(FE_UPWARD);
  ::feenableexcept(kTraps);
  const std::int32_t result = row.call(values);
  const int traps = ::fegetexcept();
  ::fedisableexcept(FE_ALL_EXCEPT);
  const int rounding = ::fegetround();
  const int flags = ::fetestexcept(FE_ALL_EXCEPT);
  ::fesetround(FE_TONEAREST);
  Expect(traps == kTraps, std::string(row.name) + ": the host's traps are gone");
  Expect(rounding == FE_UPWARD, std::string(row.name) + ": the host's rounding is gone");
  Expect(flags == 0, std::string(row.name) + ": leaves flags behind");
  return result;
}

std::int32_t FailedResult(const Export& row) {
  const bool zero =
      std::find(kAlwaysZero.begin(), kAlwaysZero.end(), row.name) != kAlwaysZero.end();
  return zero ? 0 : 1;
}

std::int32_t SaneCall(const Export& row) {
  constexpr std::size_t longest = 200;
  std::array<std::array<char, longest>, kMostParameters> rooms{};
  Values values;
  std::size_t i = 0;
  for (const Parameter& parameter : row.Parameters()) {
    values[i] = Sane(parameter, rooms[i].data());
    ++i;
  }
  return row.call(values);
}

}  // namespace kestra::hostile
