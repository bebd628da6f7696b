#pragma once

#include <string>

namespace kestra {

// Writes a line to the host's standard error if that takes it at once. Nothing that is wrong with
// it, a full pipe or one whose reader is gone, stops or ends the host.
void WriteNote(int fd, std::string line);

}  // namespace kestra
