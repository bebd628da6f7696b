#pragma once

#include <cstdint>

#include "exports/exports.hpp"

namespace kestra::unit {

// What a host passes, by the kind of the argument.
struct Passed {
  const char* text = nullptr;  // for every text; as long as the longest, or null
  char* buffer = nullptr;      // for every result
  double amount = 0;
  std::int32_t count = 0;
};

inline std::int32_t Call(const exports::Export& exported, const Passed& passed) {
  exports::Values values{};
  for (std::size_t i = 0; i < exported.count; ++i) {
    const auto& place = exported.places[i];
    values[i] = {nullptr, passed.amount, passed.count};
    if (place.kind == exports::Kind::kRoom) values[i].integer = passed.buffer != nullptr ? 20 : 0;
    if (place.IsText()) values[i].pointer = passed.text;
    if (place.kind == exports::Kind::kResult) values[i].pointer = passed.buffer;
  }
  return exported.call(values);
}

}  // namespace kestra::unit
