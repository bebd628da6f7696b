#include "device/header.hpp"

#include <string>

#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kHeaderLength = 120;
// Before a text: double width.
constexpr char kDoubleWidth = '\xF4';

}  // namespace

std::int32_t SetEncabezado(Library& library, const char* text, std::int32_t line,
                           std::int32_t attribute) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonEncabezadoT, state.LonEncabezadoF);
  auto field = Clean(state, TextField(library, LeerCadena(text, kHeaderLength), length));
  if (attribute == 1) field = kDoubleWidth + std::string(TrimBlanks(field));
  return Operate(library, Call("EP_SetEncabezado", {field, std::to_string(line)}),
                 " - Comando : EP_SetEncabezado", Command(']').Field(line).Field(field));
}

std::int32_t GetEncabezado(Library& library, char* result, std::int32_t line) {
  if (!Confirm(library, Call("EP_GetEncabezado", {std::to_string(line)}))) return kFailure;
  EscribirLog(library, " - Comando : EP_GetEncabezado");
  const auto verdict = Send(library, Command('^').Field(line));
  DevolverCadena(result, FixedWidth(library.state.Respuesta[1], kHeaderLength), kHeaderLength);
  return verdict;
}

}  // namespace kestra
