// What a till asks for, looked at as a whole before anything of it is printed.
#pragma once

#include <string_view>
#include <vector>

#include "base/json.hpp"
#include "base/problem.hpp"

namespace puerta {

// Everything that is wrong with the body of an operation ("comprobante", "informe", "no_fiscal", "cajon", "reloj",
// "encabezados"); `facts` are those of the worker's "listo", null while no worker has told any.
std::vector<FieldError> Check(std::string_view operation, const Json& body, const Json& facts);

}  // namespace puerta
