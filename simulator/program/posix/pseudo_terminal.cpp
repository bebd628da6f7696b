#include "program/posix/pseudo_terminal.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "program/posix/port_speed.hpp"

namespace impresora {
namespace {

constexpr auto kQuietTime = std::chrono::seconds(1);

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void MakeRaw(int fd) {
  termios mode{};
  if (tcgetattr(fd, &mode) != 0) Fail("tcgetattr");
  cfmakeraw(&mode);
  if (tcsetattr(fd, TCSANOW, &mode) != 0) Fail("tcsetattr");
}

}  // namespace

PseudoTerminal::PseudoTerminal(asio::io_context& loop, std::string link, int first_baud)
    : printer_side_(loop),
      watch_(loop),
      quiet_(loop),
      first_baud_(first_baud),
      link_path_(std::move(link)) {
  Plug();
}

void PseudoTerminal::Plug() {
  const int fd = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) Fail("posix_openpt");
  printer_side_.assign(fd);
  printer_side_.non_blocking(true);
  if (grantpt(fd) != 0) Fail("grantpt");
  if (unlockpt(fd) != 0) Fail("unlockpt");
  const char* const name = ptsname(fd);
  if (name == nullptr) Fail("ptsname");
  path_ = name;
  host_side_ = Descriptor(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
  if (host_side_.Get() < 0) Fail(name);
  MakeRaw(host_side_.Get());
  if (first_baud_ != 0) SetPortSpeed(host_side_.Get(), first_baud_);
  if (occupied_) LockPort();
  Link();
}

// A terminal plugged in anew may have its old name.
void PseudoTerminal::Link() {
  if (link_path_.empty() || (link_ && link_->Target() == path_)) return;
  link_ = std::make_unique<PortLink>(link_path_, path_);
}

void PseudoTerminal::Start(LineEvents events) {
  events_ = std::move(events);
  WatchForClosing();
  Read();
}

void PseudoTerminal::Read() {
  printer_side_.async_read_some(asio::buffer(buffer_),
                                [this](asio::error_code error, std::size_t count) {
                                  if (error) return;  // unplugged; whoever plugs in anew reads anew
                                  LookAfter(Clock::now() + kQuietTime);
                                  events_.arrived({buffer_.data(), count});
                                  Read();
                                });
}

void PseudoTerminal::Write(std::string_view bytes) {
  asio::error_code error;
  while (!bytes.empty() && !error) {
    bytes.remove_prefix(printer_side_.write_some(asio::buffer(bytes), error));
  }
}

// A host's settings stay with the terminal when it closes it, as with a serial port.
int PseudoTerminal::HostBaud() const {
  return PortSpeed(host_side_.Get());
}

bool PseudoTerminal::Occupy(bool by_another) {
  occupied_ = by_another;
  LockPort();
  return true;
}

// As another till's library does: no one else may open the port, nor lock it if the system lets it in
// all the same.
void PseudoTerminal::LockPort() {
  ioctl(host_side_.Get(), occupied_ ? TIOCEXCL : TIOCNXCL);
  flock(host_side_.Get(), occupied_ ? LOCK_EX | LOCK_NB : LOCK_UN);
}

// Whoever has the old terminal open finds it dead; the next one finds a new one at the link.
void PseudoTerminal::HangUp() {
  watch_.close();
  host_side_ = Descriptor();
  printer_side_.close();
  Plug();
  events_.new_host();
  WatchForClosing();
  Read();
}

// A host that was killed leaves its exclusive use of the port behind; that somebody closed the port
// is the sign to look after it.
void PseudoTerminal::WatchForClosing() {
  const int fd = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  if (fd < 0) return;
  watch_.assign(fd);
  inotify_add_watch(fd, path_.c_str(), IN_CLOSE);
  AwaitClosing();
}

void PseudoTerminal::AwaitClosing() {
  watch_.async_read_some(asio::buffer(closings_), [this](asio::error_code error, std::size_t) {
    if (error) return;
    LookAfter(Clock::now() + kQuietTime);
    AwaitClosing();
  });
}

void PseudoTerminal::LookAfter(Clock::time_point at) {
  const bool waiting = quiet_at_.has_value();
  quiet_at_ = at;
  if (!waiting) AwaitQuiet();
}

// Undoes the exclusive use once nobody has stirred for a second.
void PseudoTerminal::AwaitQuiet() {
  quiet_.expires_at(*quiet_at_);
  quiet_.async_wait([this](asio::error_code error) {
    if (error) return;
    if (Clock::now() < *quiet_at_) return AwaitQuiet();
    quiet_at_.reset();
    if (!occupied_) ioctl(host_side_.Get(), TIOCNXCL);
  });
}

}  // namespace impresora
