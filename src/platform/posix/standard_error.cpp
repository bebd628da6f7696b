#include "platform/posix/standard_error.hpp"

#include <limits.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include "platform/posix/native_file.hpp"

namespace kestra {
namespace {

bool BrokenPipePending() {
  sigset_t pending = {};
  ::sigpending(&pending);
  return ::sigismember(&pending, SIGPIPE) == 1;
}

// Holds back the signal that a pipe without a reader sends, and takes the one that it sent. One that was
// pending before stays for the host.
class NoBrokenPipe {
 public:
  NoBrokenPipe() : was_pending_(BrokenPipePending()) {
    ::sigemptyset(&broken_pipe_);
    ::sigaddset(&broken_pipe_, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &broken_pipe_, &before_);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;
  ~NoBrokenPipe() {
    int taken = 0;
    if (!was_pending_ && BrokenPipePending()) ::sigwait(&broken_pipe_, &taken);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  bool was_pending_;
  sigset_t broken_pipe_ = {};
  sigset_t before_ = {};
};

}  // namespace

void WriteNote(int fd, std::string line) {
  // As much as a pipe that is ready takes whole.
  if (line.size() > PIPE_BUF) line.replace(PIPE_BUF - 1, std::string::npos, "\n");
  pollfd ready = {.fd = fd, .events = POLLOUT, .revents = 0};
  if (::poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0) return;
  const NoBrokenPipe no_broken_pipe;
  WriteAll(fd, line);
}

}  // namespace kestra
