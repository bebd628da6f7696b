#pragma once

#include <array>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "exports/exports.hpp"
#include "kestra/kestra.h"

// The rows themselves; linked.cpp and by_name.cpp show them to the rest.
namespace kestra::exports {

template <class Type>
Type As(const Value& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.number;
  } else {
    return static_cast<Type>(const_cast<void*>(value.pointer));
  }
}

// Is this how the header declares a parameter of that kind?
template <class Type>
constexpr bool Declares(Kind kind) {
  switch (kind) {
    case Kind::kInteger:
    case Kind::kRoom:
      return std::is_same_v<Type, std::int32_t>;
    case Kind::kAmount:
      return std::is_same_v<Type, double>;
    case Kind::kText:
    case Kind::kTerminated:
      return std::is_same_v<Type, const char*>;
    default:
      return std::is_pointer_v<Type> &&
             std::is_const_v<std::remove_pointer_t<Type>> != (kind == Kind::kResult);
  }
}

template <class Function>
struct Shape;

template <class Result, class... Types>
struct Shape<Result(KESTRA_CALL*)(Types...)> {
  static constexpr std::size_t kCount = sizeof...(Types);

  static constexpr bool Fits(std::span<const Parameter> parameters) {
    std::size_t next = 0;
    return parameters.size() == kCount && (Declares<Types>(parameters[next++].kind) && ...);
  }

  template <std::size_t... Places>
  static std::int32_t Call(Result(KESTRA_CALL* function)(Types...), const Values& values,
                           std::index_sequence<Places...> /*all*/) {
    if constexpr (std::is_void_v<Result>) {
      function(As<Types>(values[Places])...);
      return 0;
    } else {
      return function(As<Types>(values[Places])...);
    }
  }
};

// "t50 z o12 i": letters as Kind has them, each with its bytes.
constexpr void Read(std::string_view letters, Export& row) {
  for (const char letter : letters) {
    if (letter == ' ') continue;
    if (letter < '0' || letter > '9') {
      row.places[row.count++] = {static_cast<Kind>(letter)};
    } else {
      std::size_t& size = row.places[row.count - 1].size;
      size = 10 * size + static_cast<std::size_t>(letter - '0');
    }
  }
}

struct Results {
  Nature nature;
  std::int32_t done;
  std::int32_t failed;
};

constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001U);
constexpr Results kOperation{Nature::kOperation, 0, 1};
constexpr Results kFixed{Nature::kFixed, 0, 0};
constexpr Results kReport{Nature::kReport, 0, -1};
constexpr Results kComponents{Nature::kBeside, kNotImplemented, kNotImplemented};

template <bool kIsLinked, auto Function>
constexpr Export Row(std::string_view name, Results results, std::string_view letters = "",
                     std::string_view sane = "") {
  using OfFunction = Shape<decltype(Function)>;
  Export row{name, results.nature, results.done, results.failed, sane};
  Read(letters, row);
  if (!OfFunction::Fits(row.Parameters())) throw std::logic_error("the header declares others");
  row.call_at = [](void* place, const Values& values) {
    return OfFunction::Call(reinterpret_cast<decltype(Function)>(place), values,
                            std::make_index_sequence<OfFunction::kCount>());
  };
  if constexpr (kIsLinked) {
    row.call = [](const Values& values) {
      return OfFunction::Call(Function, values, std::make_index_sequence<OfFunction::kCount>());
    };
  }
  return row;
}

inline constexpr std::string_view kOpening = "t2 t1 t40 t40 t6 t11 t1 t40 t40 t40 t40 t40 i";
inline constexpr std::string_view kItem = "t50 d d d d t22 t22 t22";

#define ROW(name, ...) Row<kIsLinked, &(name)>(#name, __VA_ARGS__)
template <bool kIsLinked>
inline constexpr std::array kTable{
    ROW(EP_Init, {Nature::kLifetime, 1, 0}),
    ROW(EP_Kill, {Nature::kLifetime, 0, 0}),
    ROW(EP_AjusteRedondeo, {Nature::kOperation, 0, 0}, "d", "9000"),  // never tells of a failure
    ROW(EP_AbrirComprobanteFiscal, kOperation, kOpening,
        "FC|A|Libreria S.R.L.||CUIT|30000000007|I|Belgrano 1234|||||1"),
    ROW(EP_ImprimirItem, kOperation, kItem, "Resma|10|320|21|0|Caja cerrada||"),
    ROW(EP_AnularItem, kOperation, kItem, "Resma|1|320|21|0|||"),
    ROW(EP_ImprimirTextoFiscal, kOperation, "t26", "Oferta"),
    ROW(EP_ImprimirTextoFiscalInterna, kOperation, "z", "Oferta"),
    ROW(EP_CerrarComprobanteFiscal, kOperation, "t2 t1 o8", "FC|A"),
    ROW(EP_Cancelar, kOperation),
    ROW(EP_DescuentoGeneral, kOperation, "t80 d", "Descuento|200"),
    ROW(EP_RecargoGeneral, kOperation, "t80 d", "Recargo|100"),
    ROW(EP_EspecificarPercepcionGlobal, kOperation, "t20 d d t1", "Percepcion|150|0|O"),
    ROW(EP_ImprimirPago, kOperation, "t80 d", "Efectivo|30000"),
    ROW(EP_AbrirComprobanteNoFiscalHomologado, kOperation, kOpening,
        "NC|A|Libreria||CUIT|1|I|Sur 1|||||1"),
    ROW(EP_CerrarComprobanteNoFiscalHomologado, kOperation, "t2 t1", "NC|A"),
    ROW(EP_AbrirComprobanteNoFiscal, kOperation),
    ROW(EP_ImprimirTextoNoFiscal, kOperation, "t120", "Retirar por deposito"),
    ROW(EP_CerrarComprobanteNoFiscal, kOperation),
    ROW(EP_ReporteX, kOperation),
    ROW(EP_ReporteZ, kOperation),
    ROW(EP_ReporteZporNumeros, kOperation, "i i i", "1|1|0"),
    ROW(EP_ReporteZporFechas, kOperation, "t6 t6 i", "200101|991231|0"),
    ROW(EP_AbrirCajonDeDinero, kOperation, "i", "1"),
    ROW(EP_CambiarFechaHora, kOperation, "t6 t6", "990101|103000"),
    ROW(EP_ObtenerFechaHora, kOperation, "o12"),
    ROW(EP_SetEncabezado, kOperation, "t120 i i", "Gracias por su compra|1|0"),
    ROW(EP_GetEncabezado, kOperation, "o120 i", "1"),
    ROW(EP_CortaPapel, kOperation),
    ROW(EP_AvanzaPapel, kOperation, "i", "2"),
    ROW(EP_ValoresModelo, kOperation, "o64"),
    ROW(EP_Numeracion, kOperation, "o80"),
    ROW(EP_AutodetectarModelo, kOperation, "o14"),
    ROW(EP_Chequear_Error, kFixed),
    ROW(EP_ReimprimirComprobante, kFixed),
    ROW(EP_Configuracion, kFixed, "i", "1"),
    ROW(EP_ConsultaMemoria, kFixed, "i", "1"),
    ROW(EP_Copias, kFixed, "i", "1"),
    ROW(EP_ImpuestoInternoFijo, kFixed, "i", "1"),
    ROW(EP_ImpuestoInternoPorMonto, kFixed, "i", "1"),
    ROW(EP_InformacionRemito, kFixed, "i", "1"),
    ROW(EP_Inicializacion, kFixed, "i", "1"),
    ROW(EP_Memoria, kFixed, "i", "1"),
    ROW(EP_DescuentoUltimoItem, kFixed, "i i i", "1|2|3"),
    ROW(EP_ImprimirItemEnRemito, kFixed, "i i i", "1|2|3"),
    ROW(EP_DatosCliente, kFixed, "i i i i i", "1|2|3|4|5"),
    ROW(DllCanUnloadNow, {Nature::kBeside, 1, 0}),  // 1 while a port is held
    ROW(DllRegisterServer, kComponents),
    ROW(DllUnregisterServer, kComponents),
    ROW(DllGetClassObject, kComponents, "g g o8"),
    ROW(Kestra_DefinirOperador, {Nature::kBeside, 0, 0}, "k"),
    ROW(Kestra_Desenlace, kReport),
    ROW(Kestra_Causa, kReport),
    ROW(Kestra_CausaTexto, kReport, "o200 n", "200"),
    ROW(Kestra_Respuesta, kReport, "i o40 n", "1|40"),
    ROW(Kestra_Intentos, kReport),
    ROW(Kestra_Estado, kReport),
    ROW(Kestra_DocumentoAbierto, kReport),
    ROW(Kestra_Subtotal, kReport, "o20 n", "20"),
    ROW(Kestra_Numeracion, kReport, "i i o10 n", "1|66|10"),
    ROW(Kestra_Pendiente, kReport, "o100 n", "100"),
    ROW(Kestra_Resolver, kReport),
    ROW(Kestra_ResolverNumero, kReport, "o10 n", "10"),
    ROW(Kestra_Olvidar, kReport),
};
#undef ROW

}  // namespace kestra::exports
