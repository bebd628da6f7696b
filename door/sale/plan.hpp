// A request as a whole: what is wrong with it, or what is to be done.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/json.hpp"
#include "sale/calls.hpp"
#include "sale/facts.hpp"
#include "sale/part.hpp"

namespace puerta {

struct Plan {
  Errors errors;
  std::vector<Call> calls;             // none when there are errors
  std::optional<std::size_t> counter;  // of the printer's, which goes up by one when it is done
  Json told = Json::object();          // what is known of its outcome before: type, letter, total
};

Plan PlanOf(std::string_view operation, const Json& body, const Facts& facts);

// Whether such an operation prints or sets something: else it only asks.
bool ChangesThePrinter(std::string_view operation);

}  // namespace puerta
