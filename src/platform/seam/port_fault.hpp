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

// The reason that its failure carries.
constexpr std::int32_t PortReason(PortFault fault) {
  return static_cast<std::int32_t>(fault) + 1;
}

// The failure with the number that the classic communications control gives it, in words that name
// the device.
Failure PortFailure(PortFault fault, std::string_view device);

// The same with the system's own error number at its end.
Failure PortFailure(PortFault fault, std::string_view device, int system_error);

// What an error number of the system means for a port.
template <typename Number>
struct ErrorRow {
  Number error;
  PortFault fault;
};

template <typename Rows, typename Number>
PortFault FaultIn(const Rows& rows, Number error, PortFault otherwise) {
  for (const auto& row : rows) {
    if (row.error == error) return row.fault;
  }
  return otherwise;
}

}  // namespace kestra
