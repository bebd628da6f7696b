#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

namespace kestra {

// 8 data bits, no parity, one stop bit, no handshake, every byte value as it is; DTR and RTS raised.
// The speed as given, else as it is.
DCB RawLine(const DCB& now, std::optional<std::int32_t> speed);

// A read waits up to `look` for the first byte and comes back with what is there; a write that the line
// does not take gives up after `stall`. Both in milliseconds.
COMMTIMEOUTS LineTimeouts(std::int32_t look, std::int32_t stall);

}  // namespace kestra
