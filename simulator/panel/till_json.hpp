#pragma once

#include <cstdint>
#include <string_view>

#include "line/till.hpp"
#include "panel/json_text.hpp"

namespace impresora {

// The host as a person at the panel sees it, and how another one gets to this line. `now` is in local
// seconds.
Json TillJson(const HostLine& line, const HostSigns& signs, std::int64_t now,
              std::string_view family);

}  // namespace impresora
