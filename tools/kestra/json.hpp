#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

#include "console.hpp"

namespace kestra::tool {

using Json = nlohmann::ordered_json;

// What is no UTF-8, as a name in another code, becomes marks.
inline void Print(Console& console, const Json& value) {
  console.Out() << value.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

// The same on one line, of a stream of values; seen at once.
inline void PrintLine(std::ostream& out, const Json& value) {
  out << value.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

}  // namespace kestra::tool
