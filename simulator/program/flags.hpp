#pragma once

#include <span>
#include <string>
#include <string_view>

#include "program/options.hpp"

namespace impresora {

// One row per flag; `set` returns false when the value makes no sense.
struct Flag {
  std::string_view name;
  std::string_view value;  // what the help calls it; empty for a flag that stands alone
  std::string_view help;
  bool (*set)(Options&, std::string_view);
  int values = 1;
  std::string_view right = {};        // what it may be, where `value` does not say it
  std::string (*listed)() = nullptr;  // the same where it stands in a table
};

std::span<const Flag> Flags();

}  // namespace impresora
