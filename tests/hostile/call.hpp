#pragma once

#include <cstdint>

#include "hostile/exports.hpp"

namespace kestra::hostile {

// From a host that stops at each floating-point fault and rounds upward: it finds both as it left them.
std::int32_t CallWithTraps(const Export& row, const Values& values);

// What a call gives that is turned away or fails: the start's failure is zero, an adjustment always
// tells success, and so do those that do nothing.
std::int32_t FailedResult(const Export& row);

// The row's sane call, in memory of its own.
std::int32_t SaneCall(const Export& row);

}  // namespace kestra::hostile
