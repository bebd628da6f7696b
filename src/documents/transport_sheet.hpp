#pragma once

#include "state/library.hpp"

namespace kestra {

// Makes room for one more item on the form: asks the printer, and closes the full sheet and opens
// the next as a transport. False ends the item: it is not sent.
bool RoomForItem(Library& library);

}  // namespace kestra
