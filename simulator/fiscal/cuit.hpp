#pragma once

#include <string_view>

#include "fiscal/document.hpp"

namespace impresora {

// Eleven digits of which the last checks the others, weighed 5432765432 modulo 11.
bool IsCuit(std::string_view digits);

// False only when the customer's number claims to be a CUIT or CUIL and is none.
bool HasGoodCuit(const Customer& customer);

}  // namespace impresora
