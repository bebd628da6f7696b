#pragma once

#include <termios.h>

#include <cstdint>
#include <optional>

namespace kestra {

// Raw bytes both ways, 8 data bits, no parity, one stop bit, no handshake; the speed as given, else
// as it is. What says nothing about that stays as the device has it.
termios RawLine(const termios& now, std::optional<std::int32_t> speed);

bool SameLine(const termios& a, const termios& b);

}  // namespace kestra
