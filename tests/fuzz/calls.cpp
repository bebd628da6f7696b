#include "fuzz/calls.hpp"

#include <memory>
#include <stdexcept>
#include <tuple>
#include <type_traits>

#include "kestra/kestra.h"

namespace kestra::fuzzing {
namespace {

using fuzz::Input;

// How many bytes the texts and buffers of an export have, in their order.
using Sizes = std::array<std::size_t, 12>;

constexpr std::size_t kEndsWithZero = 0;

constexpr std::array<double, 12> kNumbers{0,    1,      0.5,  2.675,   100,      21,
                                          10.5, 999.99, -1.5, 99999.9, 0.000001, 1e12};

// The host's own memory during a call.
class Argument {
 public:
  Argument(Input& input, std::size_t size) {
    const auto length = input.Byte();
    if (length == 255) return;  // null
    const auto own = size == kEndsWithZero ? length % 40U + 1U : size;
    bytes_ = std::make_unique<char[]>(own);
    std::fill_n(bytes_.get(), own, size == kEndsWithZero ? '\0' : ' ');
    const auto text = input.Text(size == kEndsWithZero ? own - 1 : own);
    text.copy(bytes_.get(), text.size());
  }

  [[nodiscard]] char* Get() const { return bytes_.get(); }

 private:
  std::unique_ptr<char[]> bytes_;
};

template <typename T>
struct Holder {
  Holder(Input& input, const std::size_t*& size) : argument(input, *size++) {}
  [[nodiscard]] T Get() const { return argument.Get(); }
  Argument argument;
};

template <>
struct Holder<double> {
  Holder(Input& input, const std::size_t*& /*size*/) {
    const auto kind = input.Byte();
    number = kind < 200 ? kNumbers[kind % kNumbers.size()]
                        : (kind < 240 ? input.Int32() / 1000.0 : input.Double());
  }
  [[nodiscard]] double Get() const { return number; }
  double number;
};

template <>
struct Holder<std::int32_t> {
  Holder(Input& input, const std::size_t*& /*size*/) {
    const auto kind = input.Byte();
    number = kind < 250 ? kind % 32 : input.Int32();
  }
  [[nodiscard]] std::int32_t Get() const { return number; }
  std::int32_t number;
};

template <typename... Types>
std::int32_t Apply(std::int32_t(KESTRA_CALL* function)(Types...), Input& input,
                   const Sizes& sizes) {
  [[maybe_unused]] const std::size_t* size = sizes.data();
  // Braces: from the first to the last.
  const std::tuple<Holder<Types>...> holders{Holder<Types>(input, size)...};
  return std::apply([&](const auto&... holder) { return function(holder.Get()...); }, holders);
}

struct Export {
  std::int32_t (*call)(Input&, const Sizes&);
  Sizes sizes;
};

template <auto Function>
constexpr Export Row(Sizes sizes = {}) {
  return {[](Input& input, const Sizes& of) { return Apply(Function, input, of); }, sizes};
}

constexpr Sizes kOpening{2, 1, 40, 40, 6, 11, 1, 40, 40, 40, 40, 40};

constexpr std::array kExports{
    Row<&EP_Init>(),
    Row<&EP_Kill>(),
    Row<&EP_AjusteRedondeo>(),
    Row<&EP_AbrirComprobanteFiscal>(kOpening),
    Row<&EP_ImprimirItem>({50, 22, 22, 22}),
    Row<&EP_AnularItem>({50, 22, 22, 22}),
    Row<&EP_ImprimirTextoFiscal>({26}),
    Row<&EP_ImprimirTextoFiscalInterna>({kEndsWithZero}),
    Row<&EP_CerrarComprobanteFiscal>({2, 1, 8}),
    Row<&EP_Cancelar>(),
    Row<&EP_DescuentoGeneral>({80}),
    Row<&EP_RecargoGeneral>({80}),
    Row<&EP_EspecificarPercepcionGlobal>({20, 1}),
    Row<&EP_ImprimirPago>({80}),
    Row<&EP_AbrirComprobanteNoFiscalHomologado>(kOpening),
    Row<&EP_CerrarComprobanteNoFiscalHomologado>({2, 1}),
    Row<&EP_AbrirComprobanteNoFiscal>(),
    Row<&EP_ImprimirTextoNoFiscal>({120}),
    Row<&EP_CerrarComprobanteNoFiscal>(),
    Row<&EP_ReporteX>(),
    Row<&EP_ReporteZ>(),
    Row<&EP_ReporteZporNumeros>(),
    Row<&EP_ReporteZporFechas>({6, 6}),
    Row<&EP_AbrirCajonDeDinero>(),
    Row<&EP_CambiarFechaHora>({6, 6}),
    Row<&EP_ObtenerFechaHora>({12}),
    Row<&EP_SetEncabezado>({120}),
    Row<&EP_GetEncabezado>({120}),
    Row<&EP_CortaPapel>(),
    Row<&EP_AvanzaPapel>(),
    Row<&EP_ValoresModelo>({64}),
    Row<&EP_Numeracion>({80}),
    Row<&EP_AutodetectarModelo>({14}),
    Row<&EP_Chequear_Error>(),
    Row<&EP_ReimprimirComprobante>(),
    Row<&EP_Configuracion>(),
    Row<&EP_ConsultaMemoria>(),
    Row<&EP_Copias>(),
    Row<&EP_ImpuestoInternoFijo>(),
    Row<&EP_ImpuestoInternoPorMonto>(),
    Row<&EP_InformacionRemito>(),
    Row<&EP_Inicializacion>(),
    Row<&EP_Memoria>(),
    Row<&EP_DescuentoUltimoItem>(),
    Row<&EP_ImprimirItemEnRemito>(),
    Row<&EP_DatosCliente>(),
    Row<&DllCanUnloadNow>(),
};

constexpr std::size_t kKill = 1;
constexpr std::size_t kRounding = 2;

}  // namespace

Called CallAny(Input& input) {
  const auto which = input.Below(kExports.size());
  const auto& row = kExports[which];
  return {row.call(input, row.sizes), which == kKill, which == kRounding};
}

std::int32_t CallPlain(std::size_t which) {
  static constexpr std::array kPlain{&EP_Init, &EP_Kill, &EP_Cancelar, &EP_ReporteX};
  return kPlain[which % kPlain.size()]();
}

void CallWithin(std::size_t which) {
  const auto result = CallPlain(which);
  fuzz::Require(result == (which % 4 < 2 ? 0 : 1), "a call within a call is turned away");
}

}  // namespace kestra::fuzzing
