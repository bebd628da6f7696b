#include "operation/operation.hpp"

#include <exception>
#include <optional>
#include <utility>

#include "base/failure.hpp"
#include "fields/text_field.hpp"
#include "protocol/exchange.hpp"
#include "state/log.hpp"
#include "state/report.hpp"

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

// Asks "Envia?" when MostrarComandos is 1. True: the command may go (EnviaComando).
bool Confirm(Library& library, std::string_view call) {
  if (call.empty()) return true;
  auto& may_send = library.state.EnviaComando;
  may_send = kTrue;
  if (library.state.MostrarComandos == 1) {
    const auto answer = library.platform.GetOperator().Message(call, "Envia?", kBoxYesNoQuestion);
    may_send = ToBoolean(answer == kAnswerYes);
  }
  return may_send != kFalse;
}

// The bytes to send; nothing when there is no command.
struct ToBytes {
  const State& state;

  std::optional<std::string> operator()(NoCommand) const { return std::nullopt; }
  std::optional<std::string> operator()(PreviousCommand) const { return state.ComandoActual; }
  std::optional<std::string> operator()(const Command& command) const { return command.Bytes(); }
};

std::optional<std::string> NotSent(Library& library, Cause cause) {
  NoteVerdict(library, {Outcome::kNotSent, cause});
  return std::nullopt;
}

// All that comes before the sending: the bytes to send, or nothing when it ends there.
std::optional<std::string> Prepare(Library& library, const Operation& operation) {
  if (!Confirm(library, operation.call)) return NotSent(library, Cause::kDeclined);
  if (!operation.log.empty()) EscribirLog(library, operation.log);
  if (operation.before && !operation.before()) return NotSent(library, operation.otherwise);
  auto bytes = std::visit(ToBytes{library.state}, operation.command);
  return bytes ? std::move(bytes) : NotSent(library, Cause::kNoCommand);
}

}  // namespace

std::int32_t Run(Library& library, const Operation& operation) {
  NameCall(library, operation.call);
  std::optional<std::string> bytes;
  try {
    bytes = Prepare(library, operation);
  } catch (const std::exception& error) {
    NotSent(library, CauseOf(ToFailure(error)));
    throw;
  }
  if (!bytes) return kFailure;
  const bool accepted = Enviar(library, *bytes);
  if (operation.after) operation.after();
  return accepted ? kSuccess : kFailure;
}

std::string Call(std::string_view name, std::initializer_list<std::string_view> arguments) {
  return std::string(name).append("(").append(Join(arguments, ",")).append(")");
}

std::string QuotedCall(std::string_view name, std::initializer_list<std::string_view> arguments) {
  return std::string(name).append("('").append(Join(arguments, "','")).append("')");
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
