#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exports/exports.hpp"
#include "hostile/posix/places.hpp"

namespace kestra::hostile {

using exports::Argument;
using exports::Value;

// The memory that hostile pointers lead to.
struct Places {
  LonePage text;
  LonePage result;
  LonePage locked;  // may be read only

  Places();
  // True while nothing was written where nothing may be.
  [[nodiscard]] bool Untouched() const;
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
