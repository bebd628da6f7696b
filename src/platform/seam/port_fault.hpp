#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/failure.hpp"

namespace kestra {

// What can go wrong with a port, on any platform.
enum class PortFault : std::uint8_t {
  kBadNumber,
  kBadSettings,
  kMissing,
  kNoHardware,
  kNotSerial,
  kNotPermitted,
  kBusy,
  kCannotOpen,
  kAlreadyOpen,
  kNotOpen,
  kLost,
  kStalled,
  kTransfer,
  kBadAddress,
  kUnknownHost,
  kRefused,
  kNoAnswer,
  kUnreachable,
  kTurnedAway,
};

// The failure with the number that the classic communications control gives it, in words that name
// the device.
Failure PortFailure(PortFault fault, std::string_view device);

// The same with the system's own error number at its end.
Failure PortFailure(PortFault fault, std::string_view device, int system_error);

}  // namespace kestra
