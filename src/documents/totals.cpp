#include "documents/discount.hpp"

#include "documents/document_kinds.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

// A discount and a surcharge are one command with another last letter.
struct GeneralLine {
  std::string_view name;
  std::string_view log;
  std::string_view qualifier;
};
constexpr GeneralLine kDiscount{"EP_DescuentoGeneral", " - Comando : EP_DescuentoGeneral", "D"};
constexpr GeneralLine kSurcharge{"EP_RecargoGeneral", " - Comando : EP_RecargoGeneral", "R"};

std::int32_t Print(Library& library, const GeneralLine& line, const char* description,
                   double amount) {
  const auto& state = library.state;
  // The text's length groups "TF" with "TQ", the command's byte "TF" with "FC".
  const auto text = TextField(library, LeerCadena(description, 80),
                              LengthForFamily(state, state.LonTextoFiscalT, state.LonTextoFiscalF));
  const auto amount_field = NumberField(library, amount, {state.EntDesc, state.DecDesc});
  if (!Confirm(library, Call(line.name, {text, amount_field}))) return kFailure;
  EscribirLog(library, line.log);
  const char byte = ByteOfFamily(state.TipoComprobante, kTotals);
  if (byte == '\0') return SendPrevious(library);
  return Send(library, Command(byte).Field(text).Field(amount_field).Field(line.qualifier));
}

}  // namespace

std::int32_t DescuentoGeneral(Library& library, const char* description, double amount) {
  return Print(library, kDiscount, description, amount);
}

std::int32_t RecargoGeneral(Library& library, const char* description, double amount) {
  return Print(library, kSurcharge, description, amount);
}

}  // namespace kestra
