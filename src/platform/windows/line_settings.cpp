#include "platform/windows/line_settings.hpp"

namespace kestra {

DCB RawLine(const DCB& now, std::optional<std::int32_t> speed) {
  DCB line = {};
  line.DCBlength = sizeof line;
  line.BaudRate = speed ? static_cast<DWORD>(*speed) : now.BaudRate;
  line.fBinary = TRUE;  // the system knows no other
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  line.fAbortOnError = FALSE;  // a byte that arrives damaged is the exchange's affair
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  // Unused without handshake, but a driver refuses limits that its buffer cannot hold, or one character
  // for both signs.
  line.XonLim = now.XonLim;
  line.XoffLim = now.XoffLim;
  line.XonChar = now.XonChar;
  line.XoffChar = now.XoffChar;
  return line;
}

COMMTIMEOUTS LineTimeouts(std::int32_t look, std::int32_t stall) {
  COMMTIMEOUTS timeouts = {};
  timeouts.ReadIntervalTimeout = MAXDWORD;
  timeouts.ReadTotalTimeoutMultiplier = MAXDWORD;
  timeouts.ReadTotalTimeoutConstant = static_cast<DWORD>(look);
  timeouts.WriteTotalTimeoutConstant = static_cast<DWORD>(stall);
  return timeouts;
}

}  // namespace kestra
