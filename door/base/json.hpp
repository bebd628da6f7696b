// The JSON of the door. Amounts in it are texts: a binary number would not be what the till has written.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace puerta {

using Json = nlohmann::json;

// A member that is a text; `otherwise` where it is missing or is something else.
inline std::string TextOf(const Json& object, std::string_view name,
                          std::string_view otherwise = "") {
  const auto found = object.is_object() ? object.find(name) : object.end();
  if (found == object.end() || !found->is_string()) return std::string(otherwise);
  return found->get<std::string>();
}

// For a line of its own: what is no UTF-8 is replaced, never thrown about.
inline std::string LineOf(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace puerta
