#pragma once

#include <string_view>

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "protocol/command.hpp"

namespace kestra {

// The closing command, which fiscal and homologated documents share.
inline Comando ComandoDeCierre(std::string_view familia, std::string_view letra_de_tipo,
                               std::string_view letra) {
  Comando comando(ByteDeFamilia(familia, kCerrar));
  comando.Campo(letra_de_tipo);
  if (familia != kFamiliaTicket) comando.Campo(letra).Campo({&kCampoVacio, 1});
  return comando;
}

}  // namespace kestra
