#include "pseudo_terminal.hpp"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace impresora {
namespace {

namespace fs = std::filesystem;

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

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(fd_, other.fd_);
  return *this;
}

Descriptor::~Descriptor() {
  if (fd_ >= 0) close(fd_);
}

PseudoTerminal::PseudoTerminal()
    : printer_side_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
  if (!printer_side_.valid()) Fail("posix_openpt");
  if (grantpt(fd()) != 0) Fail("grantpt");
  if (unlockpt(fd()) != 0) Fail("unlockpt");
  const char* const name = ptsname(fd());
  if (name == nullptr) Fail("ptsname");
  path_ = name;
  host_side_ = Descriptor(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
  if (!host_side_.valid()) Fail(name);
  MakeRaw(host_side_.get());
}

bool PseudoTerminal::Read(std::string& bytes) {
  std::array<char, 4096> buffer{};
  const ssize_t count = read(fd(), buffer.data(), buffer.size());
  if (count <= 0) return false;
  bytes.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

void PseudoTerminal::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void PseudoTerminal::AllowEveryone() {
  ioctl(host_side_.get(), TIOCNXCL);
}

PortLink::PortLink(std::string path, std::string target)
    : path_(std::move(path)), target_(std::move(target)) {
  const fs::file_status there = fs::symlink_status(path_);
  if (fs::exists(there) && !fs::is_symlink(there)) {
    throw std::system_error(EEXIST, std::generic_category(), path_);
  }
  // Made beside its place and moved over it, so that a host never finds the path missing.
  const std::string fresh = path_ + ".nuevo-" + std::to_string(getpid());
  fs::create_symlink(target_, fresh);
  std::error_code error;
  fs::rename(fresh, path_, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(fresh, ignored);
  throw std::system_error(error, path_);
}

PortLink::~PortLink() {
  std::error_code error;
  if (fs::read_symlink(path_, error) == target_ && !error) fs::remove(path_, error);
}

}  // namespace impresora
