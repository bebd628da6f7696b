#include "golden/exports.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "golden/onlooker.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"
#include "kestra/kestra.h"

namespace kestra::golden {
namespace {

constexpr std::size_t kMostParameters = 13;
constexpr std::string_view kGuard = "#guard#";
constexpr char kUntouched = '.';

enum class Kind { kNone, kText, kTerminated, kBuffer, kInteger, kNumber };

struct Parameter {
  Kind kind = Kind::kNone;
  std::size_t size = 0;
};

constexpr Parameter Text(std::size_t size) {
  return {Kind::kText, size};
}
constexpr Parameter Out(std::size_t size) {
  return {Kind::kBuffer, size};
}
constexpr Parameter kTerminatedText{Kind::kTerminated, 0};
constexpr Parameter kInteger{Kind::kInteger, 0};
constexpr Parameter kNumber{Kind::kNumber, 0};

// One argument as it is handed over. Texts and buffers live here during the call.
struct Value {
  Kind kind = Kind::kNone;
  std::int32_t integer = 0;
  double number = 0;
  bool null = false;
  std::vector<char> bytes{};
};

using Values = std::array<Value, kMostParameters>;

template <class Type>
Type As(Value& value) {
  if constexpr (std::is_same_v<Type, std::int32_t>) {
    return value.integer;
  } else if constexpr (std::is_same_v<Type, double>) {
    return value.number;
  } else {
    return value.null ? nullptr : value.bytes.data();
  }
}

template <class... Types, std::size_t... Positions>
std::int32_t Apply(std::int32_t(KESTRA_CALL* function)(Types...), Values& values,
                   std::index_sequence<Positions...>) {
  return function(As<Types>(values[Positions])...);
}

template <class... Types>
std::int32_t ApplyAll(std::int32_t(KESTRA_CALL* function)(Types...), Values& values) {
  return Apply(function, values, std::index_sequence_for<Types...>());
}

template <class Function>
struct Arity;

template <class... Types>
struct Arity<std::int32_t(KESTRA_CALL*)(Types...)>
    : std::integral_constant<std::size_t, sizeof...(Types)> {};

template <auto Function>
std::int32_t Invoke(Values& values) {
  return ApplyAll(Function, values);
}

struct Export {
  std::string_view name;
  std::int32_t (*invoke)(Values&);
  std::array<Parameter, kMostParameters> parameters{};
  std::size_t count = 0;
};

template <auto Function>
constexpr Export Row(std::string_view name, std::initializer_list<Parameter> parameters) {
  Export row{name, &Invoke<Function>, {}, parameters.size()};
  std::copy(parameters.begin(), parameters.end(), row.parameters.begin());
  if (parameters.size() != Arity<decltype(Function)>::value) throw std::logic_error("count");
  return row;
}

constexpr Parameter kLine = Text(40);

constexpr std::array kExports{
    Row<&EP_Init>("EP_Init", {}),
    Row<&EP_Kill>("EP_Kill", {}),
    Row<&EP_AbrirComprobanteFiscal>("EP_AbrirComprobanteFiscal",
                                    {Text(2), Text(1), kLine, kLine, Text(6), Text(11), Text(1),
                                     kLine, kLine, kLine, kLine, kLine, kInteger}),
    Row<&EP_ImprimirItem>("EP_ImprimirItem", {Text(50), kNumber, kNumber, kNumber, kNumber,
                                              Text(22), Text(22), Text(22)}),
    Row<&EP_AnularItem>("EP_AnularItem", {Text(50), kNumber, kNumber, kNumber, kNumber, Text(22),
                                          Text(22), Text(22)}),
    Row<&EP_ImprimirTextoFiscal>("EP_ImprimirTextoFiscal", {Text(26)}),
    Row<&EP_ImprimirTextoFiscalInterna>("EP_ImprimirTextoFiscalInterna", {kTerminatedText}),
    Row<&EP_CerrarComprobanteFiscal>("EP_CerrarComprobanteFiscal", {Text(2), Text(1), Out(8)}),
    Row<&EP_Cancelar>("EP_Cancelar", {}),
    Row<&EP_DescuentoGeneral>("EP_DescuentoGeneral", {Text(80), kNumber}),
    Row<&EP_RecargoGeneral>("EP_RecargoGeneral", {Text(80), kNumber}),
    Row<&EP_EspecificarPercepcionGlobal>("EP_EspecificarPercepcionGlobal",
                                         {Text(20), kNumber, kNumber, Text(1)}),
    Row<&EP_ImprimirPago>("EP_ImprimirPago", {Text(80), kNumber}),
    Row<&EP_AjusteRedondeo>("EP_AjusteRedondeo", {kNumber}),
    Row<&EP_AbrirComprobanteNoFiscalHomologado>(
        "EP_AbrirComprobanteNoFiscalHomologado",
        {Text(2), Text(1), kLine, kLine, Text(6), Text(11), Text(1), kLine, kLine, kLine, kLine,
         kLine, kInteger}),
    Row<&EP_CerrarComprobanteNoFiscalHomologado>("EP_CerrarComprobanteNoFiscalHomologado",
                                                 {Text(2), Text(1)}),
    Row<&EP_AbrirComprobanteNoFiscal>("EP_AbrirComprobanteNoFiscal", {}),
    Row<&EP_ImprimirTextoNoFiscal>("EP_ImprimirTextoNoFiscal", {Text(120)}),
    Row<&EP_CerrarComprobanteNoFiscal>("EP_CerrarComprobanteNoFiscal", {}),
    Row<&EP_ReporteX>("EP_ReporteX", {}),
    Row<&EP_ReporteZ>("EP_ReporteZ", {}),
    Row<&EP_ReporteZporNumeros>("EP_ReporteZporNumeros", {kInteger, kInteger, kInteger}),
    Row<&EP_ReporteZporFechas>("EP_ReporteZporFechas", {Text(6), Text(6), kInteger}),
    Row<&EP_AbrirCajonDeDinero>("EP_AbrirCajonDeDinero", {kInteger}),
    Row<&EP_CambiarFechaHora>("EP_CambiarFechaHora", {Text(6), Text(6)}),
    Row<&EP_ObtenerFechaHora>("EP_ObtenerFechaHora", {Out(12)}),
    Row<&EP_SetEncabezado>("EP_SetEncabezado", {Text(120), kInteger, kInteger}),
    Row<&EP_GetEncabezado>("EP_GetEncabezado", {Out(120), kInteger}),
    Row<&EP_CortaPapel>("EP_CortaPapel", {}),
    Row<&EP_AvanzaPapel>("EP_AvanzaPapel", {kInteger}),
    Row<&EP_ValoresModelo>("EP_ValoresModelo", {Out(64)}),
    Row<&EP_Numeracion>("EP_Numeracion", {Out(80)}),
    Row<&EP_AutodetectarModelo>("EP_AutodetectarModelo", {Out(14)}),
    Row<&EP_Chequear_Error>("EP_Chequear_Error", {}),
    Row<&EP_ReimprimirComprobante>("EP_ReimprimirComprobante", {}),
    Row<&EP_Configuracion>("EP_Configuracion", {kInteger}),
    Row<&EP_ConsultaMemoria>("EP_ConsultaMemoria", {kInteger}),
    Row<&EP_Copias>("EP_Copias", {kInteger}),
    Row<&EP_ImpuestoInternoFijo>("EP_ImpuestoInternoFijo", {kInteger}),
    Row<&EP_ImpuestoInternoPorMonto>("EP_ImpuestoInternoPorMonto", {kInteger}),
    Row<&EP_InformacionRemito>("EP_InformacionRemito", {kInteger}),
    Row<&EP_Inicializacion>("EP_Inicializacion", {kInteger}),
    Row<&EP_Memoria>("EP_Memoria", {kInteger}),
    Row<&EP_DescuentoUltimoItem>("EP_DescuentoUltimoItem", {kInteger, kInteger, kInteger}),
    Row<&EP_ImprimirItemEnRemito>("EP_ImprimirItemEnRemito", {kInteger, kInteger, kInteger}),
    Row<&EP_DatosCliente>("EP_DatosCliente", {kInteger, kInteger, kInteger, kInteger, kInteger}),
    Row<&DllCanUnloadNow>("DllCanUnloadNow", {}),
};

const Export& Find(std::string_view name) {
  const auto* const found = std::find_if(kExports.begin(), kExports.end(),
                                         [&](const Export& row) { return row.name == name; });
  if (found == kExports.end()) throw std::invalid_argument("no such call " + std::string(name));
  return *found;
}

std::vector<char> TextBytes(std::string_view word, const Parameter& parameter) {
  if (word.size() < 2 || word.front() != '"') throw std::invalid_argument("a text is quoted");
  const std::string text = FromVisible(word.substr(1, word.size() - 2));
  std::vector<char> bytes(text.begin(), text.end());
  if (parameter.kind == Kind::kTerminated) {
    bytes.push_back('\0');
  } else if (bytes.size() < parameter.size) {
    bytes.resize(parameter.size, ' ');
  }
  return bytes;
}

std::vector<char> BufferBytes(std::string_view word, const Parameter& parameter) {
  if (word != "out") throw std::invalid_argument("a result buffer is written out");
  std::vector<char> bytes(parameter.size, kUntouched);
  bytes.insert(bytes.end(), kGuard.begin(), kGuard.end());
  return bytes;
}

Value ReadValue(std::string_view word, const Parameter& parameter) {
  Value value{.kind = parameter.kind};
  switch (parameter.kind) {
    case Kind::kInteger:
      value.integer = ToInteger(word);
      break;
    case Kind::kNumber:
      value.number = ToNumber(word);
      break;
    default:
      value.null = word == "null";
      if (value.null) break;
      value.bytes = parameter.kind == Kind::kBuffer ? BufferBytes(word, parameter)
                                                    : TextBytes(word, parameter);
  }
  return value;
}

std::string BufferText(const Value& value) {
  const std::string bytes(value.bytes.begin(), value.bytes.end());
  const std::size_t size = bytes.size() - kGuard.size();
  if (bytes.substr(size) != kGuard) throw std::logic_error("written behind the end of a buffer");
  return bytes.substr(0, size);
}

std::int32_t Watched(const Export& row, Values& values, Onlooker* onlooker) {
  if (onlooker == nullptr) return row.invoke(values);
  onlooker->BeforeCall(row.name);
  const std::int32_t result = row.invoke(values);
  onlooker->AfterCall(row.name, result);
  return result;
}

}  // namespace

CallOutcome CallExport(std::string_view name, const std::vector<std::string_view>& arguments,
                       Onlooker* onlooker) {
  const Export& row = Find(name);
  if (arguments.size() != row.count) {
    throw std::invalid_argument(std::string(name) + " takes " + std::to_string(row.count) +
                                " arguments");
  }
  Values values{};
  for (std::size_t i = 0; i < row.count; ++i) {
    values[i] = ReadValue(arguments[i], row.parameters[i]);
  }
  CallOutcome outcome{Watched(row, values, onlooker), {}};
  for (const Value& value : values) {
    if (value.kind == Kind::kBuffer && !value.null) outcome.buffers.push_back(BufferText(value));
  }
  return outcome;
}

}  // namespace kestra::golden
