#include "sale/check.hpp"

namespace puerta {

std::vector<FieldError> Check(std::string_view, const Json& body, const Json&) {
  if (!body.is_object()) return {{.pointer = "", .message = "se espera un objeto"}};
  return {};
}

}  // namespace puerta
