#include "documents/perception.hpp"

#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {

std::int32_t EspecificarPercepcionGlobal(Library& library, const char* description, double amount,
                                         double vat, const char* qualifier) {
  const auto& state = library.state;
  const auto text = LeerCadena(description, 20);
  const auto amount_field =
      NumberField(library, amount, {state.EntPercepcion, state.DecPercepcion});
  const auto rate = NumberField(library, vat, {state.EntIVA, state.DecIVA});
  const auto letter = LeerCadena(qualifier, 1);
  const auto call = Call("EP_EspecificarPercepcionGlobal", {text, amount_field, rate, letter});
  if (!Confirm(library, call)) return kFailure;
  EscribirLog(library, " - Comando : EP_EspecificarPercepcionGlobal");
  if (letter != "I" && letter != "O") return SendPrevious(library);
  return Send(library, Command('f').Field(text).Field(letter).Field(amount_field).Field(rate));
}

}  // namespace kestra
