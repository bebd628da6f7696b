#pragma once

#include <string_view>

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "protocol/command.hpp"

namespace kestra {

// The closing command, which fiscal and homologated documents share.
inline Command ClosingCommand(std::string_view family, std::string_view kind_letter,
                              std::string_view letter) {
  Command command(ByteOfFamily(family, kClose));
  command.Field(kind_letter);
  if (family != kTicketFamily) command.Field(letter).Field({&kEmptyField, 1});
  return command;
}

}  // namespace kestra
