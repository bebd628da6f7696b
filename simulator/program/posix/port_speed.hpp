#pragma once

namespace impresora {

// Bits a second that are set on the terminal, any number that its system takes; 0 when it cannot be
// told.
int PortSpeed(int terminal);
void SetPortSpeed(int terminal, int baud);

}  // namespace impresora
