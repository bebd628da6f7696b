// What went wrong with a request, as a value that becomes application/problem+json.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/json.hpp"

namespace puerta {

// One thing that is wrong with what a till has sent: where (a JSON pointer) and what, in Spanish.
struct FieldError {
  std::string pointer;
  std::string message;
};

struct Problem {
  int status = 500;
  std::string kind = {};    // last word of the type: "sin-clave"; empty is about:blank
  std::string title = {};   // the same for all problems of the kind
  std::string detail = {};  // what happened this time
  int cause = 0;            // a number of KestraCausa, 0 when the printer has nothing to do with it
  std::vector<FieldError> errors = {};
  Json more = Json::object();  // members of its own: the job, say
};

Json ToJson(const std::vector<FieldError>& errors);
Json ToJson(const Problem& problem);

}  // namespace puerta
