#include "documents/operations.hpp"

#include "documents/document_kinds.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kPaymentLength = 20;

// A discount and a surcharge are one command with another last letter.
struct GeneralLine {
  std::string_view name;
  std::string_view log;
  std::string_view qualifier;
};
constexpr GeneralLine kDiscount{"EP_DescuentoGeneral", " - Comando : EP_DescuentoGeneral", "D"};
constexpr GeneralLine kSurcharge{"EP_RecargoGeneral", " - Comando : EP_RecargoGeneral", "R"};

std::int32_t PrintGeneral(Library& library, const GeneralLine& line, const char* description,
                          double amount) {
  const auto& state = library.state;
  // The text's length groups "TF" with "TQ", the command's byte "TF" with "FC".
  const auto text = TextField(library, LeerCadena(library.texts, description, 80),
                              LengthForFamily(state, state.LonTextoFiscalT, state.LonTextoFiscalF));
  const auto amount_field = NumberField(library, amount, {state.EntDesc, state.DecDesc});
  return Run(library, {.call = Call(line.name, {text, amount_field}),
                       .log = std::string(line.log),
                       .command = TotalsCommand(state, {text, amount_field, line.qualifier})});
}

}  // namespace

std::int32_t DescuentoGeneral(Library& library, const char* description, double amount) {
  return PrintGeneral(library, kDiscount, description, amount);
}

std::int32_t RecargoGeneral(Library& library, const char* description, double amount) {
  return PrintGeneral(library, kSurcharge, description, amount);
}

std::int32_t EspecificarPercepcionGlobal(Library& library, const char* description, double amount,
                                         double vat, const char* qualifier) {
  const auto& state = library.state;
  const auto text = LeerCadena(library.texts, description, 20);
  const auto amount_field =
      NumberField(library, amount, {state.EntPercepcion, state.DecPercepcion});
  const auto rate = NumberField(library, vat, {state.EntIVA, state.DecIVA});
  const auto letter = LeerCadena(library.texts, qualifier, 1);
  Operation operation{
      .call = Call("EP_EspecificarPercepcionGlobal", {text, amount_field, rate, letter}),
      .log = " - Comando : EP_EspecificarPercepcionGlobal",
      .command = PreviousCommand{}};
  if (letter == "I" || letter == "O") {
    operation.command = Command('f').Field(text).Field(letter).Field(amount_field).Field(rate);
  }
  return Run(library, operation);
}

std::int32_t ImprimirPago(Library& library, const char* description, double amount) {
  const auto& state = library.state;
  const auto bytes = LeerCadena(library.texts, description, 80);
  const auto amount_field = NumberField(library, amount, {state.EntDesc, state.DecDesc});
  const auto text = Clean(state, TextField(library, bytes, kPaymentLength));
  return Run(library, {.call = Call("EP_ImprimirPago", {text, amount_field}),
                       .log = " - Comando : ImprimirPago()",
                       .command = TotalsCommand(state, {text, amount_field, "T"})});
}

}  // namespace kestra
