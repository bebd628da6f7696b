// What the door tells whoever looks after it: a line of JSON for each happening.
#pragma once

#include <string_view>

#include "base/json.hpp"

namespace puerta {

class Log {
 public:
  Log() = default;
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  virtual ~Log() = default;

  // level: "info", "aviso", "error".
  virtual void Write(std::string_view level, std::string_view what, const Json& data) = 0;
};

}  // namespace puerta
