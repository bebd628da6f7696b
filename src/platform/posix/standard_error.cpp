#include "platform/posix/standard_error.hpp"

#include <limits.h>
#include <poll.h>

#include "platform/posix/held_signals.hpp"
#include "platform/posix/native_file.hpp"

namespace kestra {

void WriteNote(int fd, std::string line) {
  // As much as a pipe that is ready takes whole.
  if (line.size() > PIPE_BUF) line.replace(PIPE_BUF - 1, std::string::npos, "\n");
  pollfd ready = {.fd = fd, .events = POLLOUT, .revents = 0};
  if (::poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0) return;
  const HeldSignals held;
  WriteAll(fd, line);
}

}  // namespace kestra
