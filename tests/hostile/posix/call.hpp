#pragma once

#include <cstdint>

#include "exports/exports.hpp"

namespace kestra::hostile {

using exports::Export;
using exports::Find;
using exports::Values;

// From a host that stops at each floating-point fault and rounds upward: it finds both as it left them.
std::int32_t CallWithTraps(const Export& row, const Values& values);

// The row's sane call, in memory of its own.
std::int32_t SaneCall(const Export& row);

}  // namespace kestra::hostile
