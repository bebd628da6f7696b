#include "platform/posix/standard_error.hpp"

#include <limits.h>
#include <poll.h>
#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/native_file.hpp"

namespace kestra {
namespace {

// Holds back the signal that a pipe without a reader sends, and takes the one that it sent. One
// that was pending before stays for the host.
class NoBrokenPipe {
 public:
  NoBrokenPipe() {
    ::sigemptyset(&broken_pipe_);
    ::sigaddset(&broken_pipe_, SIGPIPE);
    sigset_t pending = {};
    ::sigpending(&pending);
    was_pending_ = ::sigismember(&pending, SIGPIPE) == 1;
    ::pthread_sigmask(SIG_BLOCK, &broken_pipe_, &before_);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;
  ~NoBrokenPipe() {
    const timespec at_once = {};
    while (!was_pending_ && ::sigtimedwait(&broken_pipe_, nullptr, &at_once) < 0 &&
           errno == EINTR) {
    }
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  sigset_t broken_pipe_ = {};
  sigset_t before_ = {};
  bool was_pending_ = false;
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
