#include "hostile/exports.hpp"

#include <cstdlib>
#include <type_traits>
#include <utility>

#include "kestra/kestra.h"

namespace kestra::hostile {
namespace {

template <typename Type>
Type As(const Value& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.number;
  } else {
    return static_cast<Type>(const_cast<void*>(value.pointer));
  }
}

template <typename Result, typename... Types, std::size_t... Positions>
std::int32_t Apply(Result(KESTRA_CALL* function)(Types...), const Values& values,
                   std::index_sequence<Positions...>) {
  if constexpr (std::is_void_v<Result>) {
    function(As<Types>(values[Positions])...);
    return 0;
  } else {
    return function(As<Types>(values[Positions])...);
  }
}

template <typename Result, typename... Types>
std::int32_t ApplyAll(Result(KESTRA_CALL* function)(Types...), const Values& values) {
  return Apply(function, values, std::index_sequence_for<Types...>());
}

template <auto Function>
Export Row(std::string_view name, std::string_view parameters = "", std::string_view samples = "") {
  return {name, parameters, samples,
          [](const Values& values) { return ApplyAll(Function, values); }};
}

#define ROW(name, ...) Row<&(name)>(#name __VA_OPT__(, ) __VA_ARGS__)

constexpr std::string_view kOpening = "t2 t1 t40 t40 t6 t11 t1 t40 t40 t40 t40 t40 i";
constexpr std::string_view kItem = "t50 d d d d t22 t22 t22";

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> pieces(1);
  for (const char c : text) {
    if (c == '|') {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

bool TakesASample(const Parameter& parameter) {
  return parameter.IsText() || !parameter.IsPointer();
}

}  // namespace

const std::vector<Export>& Exports() {
  static const std::vector<Export> exports{
      ROW(EP_Init),
      ROW(EP_AbrirComprobanteFiscal, kOpening,
          "FC|A|Libreria S.R.L.||CUIT|30000000007|I|Belgrano 1234|||||1"),
      ROW(EP_ImprimirItem, kItem, "Resma|10|320|21|0|Caja cerrada||"),
      ROW(EP_AnularItem, kItem, "Resma|1|320|21|0|||"),
      ROW(EP_ImprimirTextoFiscal, "t26", "Oferta"),
      ROW(EP_ImprimirTextoFiscalInterna, "z", "Oferta"),
      ROW(EP_CerrarComprobanteFiscal, "t2 t1 o8", "FC|A"),
      ROW(EP_Cancelar),
      ROW(EP_DescuentoGeneral, "t80 d", "Descuento|200"),
      ROW(EP_RecargoGeneral, "t80 d", "Recargo|100"),
      ROW(EP_EspecificarPercepcionGlobal, "t20 d d t1", "Percepcion|150|0|O"),
      ROW(EP_ImprimirPago, "t80 d", "Efectivo|30000"),
      ROW(EP_AjusteRedondeo, "d", "9000"),
      ROW(EP_AbrirComprobanteNoFiscalHomologado, kOpening, "NC|A|Libreria||CUIT|1|I|Sur 1|||||1"),
      ROW(EP_CerrarComprobanteNoFiscalHomologado, "t2 t1", "NC|A"),
      ROW(EP_AbrirComprobanteNoFiscal),
      ROW(EP_ImprimirTextoNoFiscal, "t120", "Retirar por deposito"),
      ROW(EP_CerrarComprobanteNoFiscal),
      ROW(EP_ReporteX),
      ROW(EP_ReporteZ),
      ROW(EP_ReporteZporNumeros, "i i i", "1|2|0"),
      ROW(EP_ReporteZporFechas, "t6 t6 i", "200101|991231|0"),
      ROW(EP_AbrirCajonDeDinero, "i", "1"),
      ROW(EP_CambiarFechaHora, "t6 t6", "990101|103000"),
      ROW(EP_ObtenerFechaHora, "o12"),
      ROW(EP_SetEncabezado, "t120 i i", "Gracias por su compra|1|0"),
      ROW(EP_GetEncabezado, "o120 i", "1"),
      ROW(EP_CortaPapel),
      ROW(EP_AvanzaPapel, "i", "2"),
      ROW(EP_ValoresModelo, "o64"),
      ROW(EP_Numeracion, "o80"),
      ROW(EP_AutodetectarModelo, "o14"),
      ROW(EP_Chequear_Error),
      ROW(EP_ReimprimirComprobante),
      ROW(EP_Configuracion, "i", "1"),
      ROW(EP_ConsultaMemoria, "i", "1"),
      ROW(EP_Copias, "i", "1"),
      ROW(EP_ImpuestoInternoFijo, "i", "1"),
      ROW(EP_ImpuestoInternoPorMonto, "i", "1"),
      ROW(EP_InformacionRemito, "i", "1"),
      ROW(EP_Inicializacion, "i", "1"),
      ROW(EP_Memoria, "i", "1"),
      ROW(EP_DescuentoUltimoItem, "i i i", "1|2|3"),
      ROW(EP_ImprimirItemEnRemito, "i i i", "1|2|3"),
      ROW(EP_DatosCliente, "i i i i i", "1|2|3|4|5"),
      ROW(DllRegisterServer),
      ROW(DllUnregisterServer),
      ROW(DllGetClassObject, "g g o8"),
      ROW(DllCanUnloadNow),
      ROW(Kestra_DefinirOperador, "k"),
      ROW(EP_Kill),
  };
  return exports;
}

const Export& Find(std::string_view name) {
  for (const Export& row : Exports()) {
    if (row.name == name) return row;
  }
  std::abort();
}

std::vector<Parameter> Export::Parameters() const {
  std::vector<Parameter> list;
  for (const char letter : parameters) {
    if (letter == ' ') continue;
    if (letter >= '0' && letter <= '9') {
      list.back().size = 10 * list.back().size + static_cast<std::size_t>(letter - '0');
    } else {
      list.push_back({letter, 0});
    }
  }
  const auto pieces = Split(samples);
  std::size_t next = 0;
  for (Parameter& parameter : list) {
    if (TakesASample(parameter)) parameter.sample = pieces.at(next++);
    if (parameter.kind == 't') parameter.sample.resize(parameter.size, ' ');
    if (parameter.kind == 'z') parameter.sample.push_back('\0');
  }
  return list;
}

}  // namespace kestra::hostile
