// What the printer's two status words say, for those who look at it. Pure.
#pragma once

#include <string>
#include <string_view>

#include "base/json.hpp"

namespace puerta {

struct Heard {
  bool answers = false;
  std::string printer = {}, fiscal = {};  // four hexadecimal digits each
  int cause = 0;                          // why it does not answer
  std::string text = {};
};

// {"contesta", "palabras", "papel", "documento_abierto", "condiciones", "causa", "texto"}
Json StateJson(const Heard& heard);

// What of it is news when it changes: not the document that is open, which changes with every sale.
Json NewsOf(const Json& state);

}  // namespace puerta
