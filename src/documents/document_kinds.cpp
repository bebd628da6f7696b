#include "documents/document_kinds.hpp"

#include "fields/text_field.hpp"

namespace kestra {

Command ClosingCommand(std::string_view family, std::string_view kind_letter,
                       std::string_view letter) {
  Command command(ByteOfFamily(family, kClose));
  command.Field(kind_letter);
  if (family != kTicketFamily) command.Field(letter).Field({&kEmptyField, 1});
  return command;
}

Outgoing TotalsCommand(const State& state, std::initializer_list<std::string_view> fields) {
  const char byte = ByteOfFamily(state.TipoComprobante, kTotals);
  if (byte == '\0') return PreviousCommand{};
  Command command(byte);
  for (const auto field : fields) command.Field(field);
  return command;
}

}  // namespace kestra
