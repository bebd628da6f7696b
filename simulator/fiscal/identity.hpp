#pragma once

#include <cstddef>
#include <string_view>

namespace impresora {

// A paper that says who a customer is.
struct IdentityKind {
  std::string_view name;
  std::size_t least, most;  // characters of its number, zeros in front not counted
  bool letters = false;     // may stand among the digits
  bool is_cuit = false;     // the last digit checks the others
};

// The row of that name, blanks around it apart, or null.
const IdentityKind* FindIdentityKind(std::string_view name);

// Whether the number has the shape of that kind's; hosts fill it up with zeros.
bool HasShapeOf(const IdentityKind& kind, std::string_view number);

// Whether somebody filled nothing in: blanks and zeros.
bool IsNoNumber(std::string_view number);

}  // namespace impresora
