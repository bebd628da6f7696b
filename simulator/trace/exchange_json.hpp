#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "line/line.hpp"

namespace impresora {

// Everything about an exchange as an object: its fields and data by name, both status words taken
// apart and the bytes on the line. Keys stay in the order that people read them in.
nlohmann::ordered_json TraceObject(const Exchange& exchange);

// The same on one line, without the line end.
std::string TraceJson(const Exchange& exchange);

}  // namespace impresora
