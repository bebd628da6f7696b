#include "device/operations.hpp"

#include <string>

#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kHeaderLength = 120;
// Before a text: double width.
constexpr char kDoubleWidth = '\xF4';

}  // namespace

std::int32_t CambiarFechaHora(Library& library, const char* date, const char* time) {
  const auto day = LeerCadena(library.texts, date, 6);
  const auto moment = LeerCadena(library.texts, time, 6);
  return Run(library, {.call = Call("EP_CambiarFechaHora", {day, moment}),
                       .log = " - Comando : EP_CambiarFechaHora",
                       .command = Command('X').Field(day).Field(moment)});
}

std::int32_t ObtenerFechaHora(Library& library, char* result) {
  const auto& answer = library.state.Respuesta;
  return Run(library,
             {.call = "EP_ObtenerFechaHora()",
              .log = " - Comando : EP_ObtenerFechaHora",
              .command = Command('Y'),
              .after = [&] { DevolverCadena(library.texts, result, answer[0] + answer[1], 12); }});
}

std::int32_t SetEncabezado(Library& library, const char* text, std::int32_t line,
                           std::int32_t attribute) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonEncabezadoT, state.LonEncabezadoF);
  auto field =
      Clean(state, TextField(library, LeerCadena(library.texts, text, kHeaderLength), length));
  if (attribute == 1) field = kDoubleWidth + std::string(TrimBlanks(field));
  return Run(library, {.call = Call("EP_SetEncabezado", {field, std::to_string(line)}),
                       .log = " - Comando : EP_SetEncabezado",
                       .command = Command(']').Field(line).Field(field)});
}

std::int32_t GetEncabezado(Library& library, char* result, std::int32_t line) {
  const auto& text = library.state.Respuesta[1];
  return Run(library, {.call = Call("EP_GetEncabezado", {std::to_string(line)}),
                       .log = " - Comando : EP_GetEncabezado",
                       .command = Command('^').Field(line),
                       .after = [&] {
                         DevolverCadena(library.texts, result, FixedWidth(text, kHeaderLength),
                                        kHeaderLength);
                       }});
}

}  // namespace kestra
