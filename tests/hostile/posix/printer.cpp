#include "hostile/posix/printer.hpp"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <utility>

#include "golden/frame_check.hpp"

namespace kestra::hostile {
namespace {

constexpr char kStx = '\x02';
constexpr char kEtx = '\x03';
constexpr char kAck = '\x06';
constexpr char kFs = '\x1c';

constexpr std::size_t kChecksumDigits = 4;
constexpr int kFields = 10;
constexpr std::size_t kLongField = 150;  // more than any result has room for
constexpr int kLook = 20;                // milliseconds

void Require(bool done) {
  if (!done) std::abort();
}

// Descriptors well away from those that the host closes or that the library is to get.
int OutOfTheWay(int fd) {
  constexpr int far_up = 100;
  const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, far_up);
  Require(moved >= 0);
  ::close(fd);
  return moved;
}

void MakeRaw(int fd) {
  termios line = {};
  Require(::tcgetattr(fd, &line) == 0);
  ::cfmakeraw(&line);
  Require(::tcsetattr(fd, TCSANOW, &line) == 0);
}

bool IsWhole(const std::string& frame) {
  const auto end = frame.find(kEtx);
  return end != std::string::npos && frame.size() == end + 1 + kChecksumDigits;
}

}  // namespace

Printer::Printer(Line line) {
  line == Line::kTerminal ? OpenTerminal() : OpenNetwork();
  // Signals are the host's, not the printer's.
  sigset_t all = {};
  sigset_t before = {};
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  thread_ = std::thread([this] { Serve(); });
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void Printer::OpenTerminal() {
  far_ = OutOfTheWay(::posix_openpt(O_RDWR | O_NOCTTY));
  Require(::grantpt(far_) == 0 && ::unlockpt(far_) == 0);
  std::array<char, 64> name{};
  Require(::ptsname_r(far_, name.data(), name.size()) == 0);
  device_ = name.data();
  near_ = OutOfTheWay(::open(name.data(), O_RDWR | O_NOCTTY));
  MakeRaw(near_);
}

void Printer::OpenNetwork() {
  door_ = OutOfTheWay(::socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  Require(::bind(door_, generic, size) == 0 && ::listen(door_, 8) == 0);
  Require(::getsockname(door_, generic, &size) == 0);
  device_ = "tcp:127.0.0.1:" + std::to_string(ntohs(address.sin_port));
}

Printer::~Printer() {
  over_ = true;
  thread_.join();
  for (const int fd : {near_, far_, door_}) {
    if (fd >= 0) ::close(fd);
  }
}

void Printer::SetStatus(const char* printer, const char* fiscal) {
  printer_ = printer;
  fiscal_ = fiscal;
}

void Printer::Admit() {
  pollfd wait = {.fd = door_, .events = POLLIN, .revents = 0};
  if (::poll(&wait, 1, kLook) == 1) far_ = OutOfTheWay(::accept(door_, nullptr, nullptr));
}

void Printer::Serve() {
  while (!over_) {
    if (far_ < 0) {
      Admit();
      continue;
    }
    pollfd wait = {.fd = far_, .events = POLLIN, .revents = 0};
    if (::poll(&wait, 1, kLook) != 1) continue;
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(far_, bytes.data(), bytes.size());
    for (ssize_t i = 0; i < count; ++i) Take(bytes[static_cast<std::size_t>(i)]);
    if (count <= 0 && door_ >= 0) ::close(std::exchange(far_, -1));
  }
}

void Printer::Take(char byte) {
  if (frame_.empty() && byte != kStx) {
    if (byte != kAck) ++strays_;
    return;
  }
  frame_ += byte;
  if (!IsWhole(frame_)) return;
  if (!golden::IsFrame(frame_)) ++strays_;
  ++frames_;
  Answer();
  frame_.clear();
}

void Printer::Answer() {
  std::string answer{kStx, frame_[1], frame_[2], kFs};
  answer.append(printer_).append(1, kFs).append(fiscal_);
  for (int i = 0; i < kFields; ++i) answer.append(1, kFs).append(kLongField, 'Z');
  answer += kEtx;
  Send(answer + golden::Checksum(answer));
}

void Printer::Send(const std::string& bytes) const {
  std::size_t sent = 0;
  while (sent < bytes.size()) {
    const ssize_t count = ::write(far_, bytes.data() + sent, bytes.size() - sent);
    if (count < 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

}  // namespace kestra::hostile
