#pragma once

#include <cstdint>
#include <string_view>

namespace impresora {

// Who somebody is to the IVA, as the letter on the wire says it.
struct IvaCondition {
  char letter;
  bool issues;      // may be an issuer's
  bool needs_cuit;  // a customer of this condition shows a CUIT
};

// The row of that letter, or null.
const IvaCondition* FindIvaCondition(char letter);

// Letters of the documents that such an issuer gives to such a customer; none when either is unknown.
std::string_view LettersFor(char issuer, char customer);

// Whether there is such a rate of IVA, in hundredths of a per cent.
bool IsIvaRate(std::int64_t rate);

}  // namespace impresora
