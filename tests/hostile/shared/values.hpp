#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "exports/exports.hpp"
#include "hostile/shared/lone_page.hpp"

namespace kestra::hostile {

using exports::Argument;
using exports::Value;

// The memory that hostile pointers lead to.
struct Places {
  const void* code;  // of the library
  LonePage text{};
  LonePage result{};
  LonePage locked{};  // may be read only
  std::string code_before{static_cast<const char*>(code), kCode};

  explicit Places(const void* of_the_library);
  // True while nothing was written where nothing may be.
  [[nodiscard]] bool Untouched() const;

  static constexpr std::size_t kCode = 120;  // bytes of it that are looked at
};

// One thing that a host passes where something else is wanted.
struct Hostile {
  std::string name;
  bool is_sound;  // not hostile at all, only at the edge of what there is: the call has to work
  std::function<Value(const Argument& argument, Places& places)> make;
  bool ends_frames = false;  // texts go out as they are: what follows is no part of a frame
};

// Those that fit the kind of the parameter.
const std::vector<Hostile>& HostileTo(const exports::Parameter& parameter);

// What a sane host passes, in memory of the places' own.
Value Sane(const Argument& argument, char* room);

}  // namespace kestra::hostile
