#include "operation/operation.hpp"

#include "base/failure.hpp"
#include "fields/text_field.hpp"
#include "protocol/exchange.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

std::string Join(std::initializer_list<std::string_view> parts, std::string_view between) {
  std::string joined;
  bool first = true;
  for (const auto part : parts) {
    if (!first) joined.append(between);
    joined.append(part);
    first = false;
  }
  return joined;
}

template <typename Conversion>
std::string OrEmpty(Library& library, Conversion convert) {
  try {
    return convert();
  } catch (const Failure&) {
    library.platform.GetOperator().Message("Error al convertir", "", kBoxOk);
    return {};
  }
}

}  // namespace

std::string Call(std::string_view name, std::initializer_list<std::string_view> arguments) {
  return std::string(name).append("(").append(Join(arguments, ",")).append(")");
}

std::string QuotedCall(std::string_view name, std::initializer_list<std::string_view> arguments) {
  return std::string(name).append("('").append(Join(arguments, "','")).append("')");
}

bool Confirm(Library& library, std::string_view call) {
  auto& may_send = library.state.EnviaComando;
  may_send = kTrue;
  if (library.state.MostrarComandos == 1) {
    const auto answer = library.platform.GetOperator().Message(call, "Envia?", kBoxYesNoQuestion);
    may_send = ToBoolean(answer == kAnswerYes);
  }
  return may_send != kFalse;
}

std::int32_t Send(Library& library, const Command& command) {
  library.state.ComandoActual = command.Bytes();
  return SendPrevious(library);
}

std::int32_t SendPrevious(Library& library) {
  return Enviar(library) == 0 ? kSuccess : kFailure;
}

std::int32_t Operate(Library& library, std::string_view call, std::string_view log,
                     const Command& command) {
  if (!Confirm(library, call)) return kFailure;
  if (!log.empty()) EscribirLog(library, log);
  return Send(library, command);
}

bool UsesTLengths(const State& state) {
  return state.TipoComprobante == "TF" || state.TipoComprobante == "TQ";
}

std::int32_t LengthForFamily(const State& state, std::int32_t t_length, std::int32_t f_length) {
  return UsesTLengths(state) ? t_length : f_length;
}

std::string NumberField(Library& library, double value, const Digits& shape) {
  return OrEmpty(library, [&] { return FormatearNumero(value, shape); });
}

std::string TextField(Library& library, std::string_view text, std::int32_t length) {
  return OrEmpty(library, [&] { return AjustarTexto(text, length); });
}

std::string Clean(const State& state, std::string text) {
  return state.QuitarCaracNoValidos == 1 ? LimpiarCaracteres(std::move(text)) : text;
}

}  // namespace kestra
