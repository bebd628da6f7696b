#include "sale/check.hpp"

#include "sale/plan.hpp"

namespace puerta {

std::vector<FieldError> Check(std::string_view operation, const Json& body, const Json& facts) {
  return PlanOf(operation, body, ReadFacts(facts)).errors;
}

}  // namespace puerta
