// The JSON of the door. Amounts in it are texts: a binary number would not be what the till has written.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
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

// Nothing where it is no JSON, or nested deeper than a till has any need of.
std::optional<Json> ParseJson(std::string_view text);

inline std::int64_t IntegerOf(const Json& object, std::string_view name,
                              std::int64_t otherwise = 0) {
  const auto found = object.is_object() ? object.find(name) : object.end();
  if (found == object.end() || !found->is_number_integer()) return otherwise;
  return found->get<std::int64_t>();
}

// For a line of its own: what is no UTF-8 is replaced, never thrown about.
inline std::string LineOf(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace puerta
