#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/seam/serial_port.hpp"

namespace kestra {

// A closed port as the settings tell: the device that they name, on this machine or behind a network,
// else the serial port of their number. Throws Failure for a number or a speed that is none, and for a
// network address that cannot be one.
std::unique_ptr<SerialPort> MakePort(const PortSettings& settings);

// The speeds, in bits per second, that a serial line knows.
inline constexpr std::array<std::int32_t, 30> kLineSpeeds = {
    50,     75,     110,     134,     150,     200,     300,     600,     1200,    1800,
    2400,   4800,   9600,    19200,   38400,   57600,   115200,  230400,  460800,  500000,
    576000, 921600, 1000000, 1152000, 1500000, 2000000, 2500000, 3000000, 3500000, 4000000};

static_assert(std::is_sorted(kLineSpeeds.begin(), kLineSpeeds.end()));

// The speed in settings such as "9600,N,8,1"; nothing when it is none, or when the rest asks for
// anything but no parity, eight data bits and one stop bit.
inline std::optional<std::int32_t> LineSpeedOf(std::string_view settings) {
  std::int32_t speed = 0;
  const char* const end = settings.data() + settings.size();
  const auto [rest, error] = std::from_chars(settings.data(), end, speed);
  if (error != std::errc() || std::string_view(rest, end) != ",N,8,1") return std::nullopt;
  if (!std::binary_search(kLineSpeeds.begin(), kLineSpeeds.end(), speed)) return std::nullopt;
  return speed;
}

// How long, in milliseconds, a port waits before it comes back to its caller.
struct PortPatience {
  std::int32_t look = 20;       // for a byte that has not come yet
  std::int32_t stall = 5000;    // for a line that takes no byte of ours
  std::int32_t connect = 5000;  // for a far end across a network, all of its addresses together
  std::int32_t farewell = 50;   // for it to hang up too
};

}  // namespace kestra
