#include "platform/posix/serial_port.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <utility>

#include "platform/posix/files.hpp"
#include "platform/seam/port_fault.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {

namespace {

// The system's names of the speeds, in the order of kLineSpeeds.
constexpr std::array<speed_t, kLineSpeeds.size()> kSystemSpeeds = {
    B50,      B75,      B110,     B134,     B150,     B200,    B300,     B600,
    B1200,    B1800,    B2400,    B4800,    B9600,    B19200,  B38400,   B57600,
    B115200,  B230400,  B460800,  B500000,  B576000,  B921600, B1000000, B1152000,
    B1500000, B2000000, B2500000, B3000000, B3500000, B4000000};

speed_t SystemSpeed(std::int32_t speed) {
  const auto* const found = std::lower_bound(kLineSpeeds.begin(), kLineSpeeds.end(), speed);
  return kSystemSpeeds[static_cast<std::size_t>(found - kLineSpeeds.begin())];
}

}  // namespace

termios RawLine(const termios& now, std::optional<std::int32_t> speed) {
  constexpr tcflag_t kFrame = CSIZE | PARENB | CSTOPB | CRTSCTS;
  termios line = now;
  line.c_iflag = IGNBRK;  // switching the printer on is no byte
  line.c_oflag = 0;
  line.c_lflag = 0;
  line.c_cflag = (now.c_cflag & ~kFrame) | CS8 | CREAD | CLOCAL;
  line.c_cc[VMIN] = 1;  // with 0, a line without news could not be told from a lost one
  line.c_cc[VTIME] = 0;
  if (speed) {
    cfsetispeed(&line, SystemSpeed(*speed));
    cfsetospeed(&line, SystemSpeed(*speed));
  }
  return line;
}

bool SameLine(const termios& a, const termios& b) {
  return a.c_iflag == b.c_iflag && a.c_oflag == b.c_oflag && a.c_lflag == b.c_lflag &&
         a.c_cflag == b.c_cflag && a.c_cc[VMIN] == b.c_cc[VMIN] && a.c_cc[VTIME] == b.c_cc[VTIME] &&
         cfgetispeed(&a) == cfgetispeed(&b) && cfgetospeed(&a) == cfgetospeed(&b);
}

namespace {

constexpr std::array kOpeningFaults = {
    ErrorRow<int>{ENOENT, PortFault::kMissing},      ErrorRow<int>{ENOTDIR, PortFault::kMissing},
    ErrorRow<int>{ENXIO, PortFault::kNoHardware},    ErrorRow<int>{ENODEV, PortFault::kNoHardware},
    ErrorRow<int>{EIO, PortFault::kNoHardware},  // a port that the system names but the machine lacks
    ErrorRow<int>{ENOTTY, PortFault::kNotSerial},    ErrorRow<int>{EISDIR, PortFault::kNotSerial},
    ErrorRow<int>{EACCES, PortFault::kNotPermitted}, ErrorRow<int>{EPERM, PortFault::kNotPermitted},
    ErrorRow<int>{EROFS, PortFault::kNotPermitted},  ErrorRow<int>{EBUSY, PortFault::kBusy},
    ErrorRow<int>{EWOULDBLOCK, PortFault::kBusy},
};

// A device that is unplugged, or whose far end is gone.
constexpr std::array kTransferFaults = {
    ErrorRow<int>{EIO, PortFault::kLost},
    ErrorRow<int>{ENXIO, PortFault::kLost},
    ErrorRow<int>{ENODEV, PortFault::kLost},
};

Failure SystemFailure(PortFault fault, PortFault unexplained, const std::string& device,
                      int error) {
  return fault == unexplained ? PortFailure(fault, device, error) : PortFailure(fault, device);
}

void Require(bool done, const std::string& device) {
  if (done) return;
  const int error = errno;
  throw SystemFailure(OpeningFault(error), PortFault::kCannotOpen, device, error);
}

// True on real serial hardware; a pseudo-terminal has no such line to raise.
bool RaiseDtr(int fd) {
  const int dtr = TIOCM_DTR;
  return ::ioctl(fd, TIOCMBIS, &dtr) == 0;
}

// What came of a wait: the events, or none when the time was up or a signal cut it short.
short EventsWithin(int fd, short events, int milliseconds) {
  pollfd wait = {.fd = fd, .events = events, .revents = 0};
  const int ready = ::poll(&wait, 1, milliseconds);
  if (ready < 0) return errno == EINTR ? short{0} : short{POLLERR};
  return wait.revents;
}

}  // namespace

PortFault OpeningFault(int error) {
  return FaultIn(kOpeningFaults, error, PortFault::kCannotOpen);
}

PortFault TransferFault(int error) {
  return FaultIn(kTransferFaults, error, PortFault::kTransfer);
}

PosixPort::PosixPort(std::string device, std::optional<std::int32_t> speed, PortPatience patience)
    : device_(std::move(device)), speed_(speed), patience_(patience) {}

PosixPort::~PosixPort() {
  Close();
}

void PosixPort::PortOpen(bool open) {
  if (open && PortOpen()) throw PortFailure(PortFault::kAlreadyOpen, device_);
  open ? Open() : Close();
}

void PosixPort::Open() {
  // Not blocking: opening must not wait for a carrier that no printer raises.
  FileDescriptor fd = OpenFile(device_, O_RDWR | O_NONBLOCK);
  Require(static_cast<bool>(fd), device_);
  SetUpLine(fd.Get());
  // The lock keeps out every other user of this library, root too; the device's own exclusion keeps
  // out other programs, and means nothing on a pseudo-terminal.
  closed_to_others_ = RaiseDtr(fd.Get()) && ::ioctl(fd.Get(), TIOCEXCL) == 0;
  stale_ = true;
  fd_ = std::move(fd);
}

void PosixPort::SetUpLine(int fd) const {
  termios now = {};
  Require(::tcgetattr(fd, &now) == 0, device_);
  Require(::flock(fd, LOCK_EX | LOCK_NB) == 0, device_);
  const termios wanted = RawLine(now, speed_);
  if (SameLine(now, wanted)) return;
  Require(::tcsetattr(fd, TCSANOW, &wanted) == 0, device_);
}

void PosixPort::Close() {
  if (closed_to_others_) ::ioctl(fd_.Get(), TIOCNXCL);
  closed_to_others_ = false;
  fd_.Close();
  received_.clear();
}

void PosixPort::RequireOpen() const {
  if (!PortOpen()) throw PortFailure(PortFault::kNotOpen, device_);
}

void PosixPort::ThrowTransferFault(int error) const {
  throw SystemFailure(TransferFault(error), PortFault::kTransfer, device_, error);
}

void PosixPort::Output(std::string_view bytes) {
  using Time = std::chrono::steady_clock;
  const std::chrono::milliseconds patience(patience_.stall);
  RequireOpen();
  DropStale();
  auto deadline = Time::time_point::max();  // set when the line first refuses a byte
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd_.Get(), bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
      deadline = Time::time_point::max();
      continue;
    }
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno != EAGAIN) ThrowTransferFault(errno);
    const auto now = Time::now();
    if (deadline == Time::time_point::max()) deadline = now + patience;
    if (now >= deadline) throw PortFailure(PortFault::kStalled, device_);
    EventsWithin(fd_.Get(), POLLOUT, patience_.look);
  }
}

std::size_t PosixPort::InBufferCount() {
  RequireOpen();
  DropStale();
  if (InputWithin(patience_.look)) TakeInput();
  return received_.size();
}

// Waiting comes before reading: an answer that is there ends the wait at once, and one that is not
// there yet costs one call to the system less than a first read in vain.
bool PosixPort::InputWithin(int milliseconds) const {
  const short events = EventsWithin(fd_.Get(), POLLIN, milliseconds);
  if ((events & POLLIN) != 0) return true;
  if (events != 0) throw PortFailure(PortFault::kLost, device_);
  return false;
}

void PosixPort::TakeInput() {
  std::array<char, 4096> bytes;  // as many as a terminal holds
  const ssize_t count = ::read(fd_.Get(), bytes.data(), bytes.size());
  if (count > 0) {
    received_.append(bytes.data(), static_cast<std::size_t>(count));
  } else if (count == 0) {
    throw PortFailure(PortFault::kLost, device_);
  } else if (errno != EAGAIN && errno != EINTR) {
    ThrowTransferFault(errno);
  }
}

void PosixPort::DiscardInput() {
  RequireOpen();
  received_.clear();
  stale_ = false;
  // Asking costs less than flushing, and mostly there is nothing.
  int waiting = 0;
  if (::ioctl(fd_.Get(), FIONREAD, &waiting) == 0 && waiting == 0) return;
  if (::tcflush(fd_.Get(), TCIFLUSH) != 0) ThrowTransferFault(errno);
}

// What the device held when it was opened goes at the first use: an exchange begins with a discard,
// and needs no second one.
void PosixPort::DropStale() {
  if (stale_) DiscardInput();
}

std::string PosixPort::Input() {
  RequireOpen();
  return std::exchange(received_, std::string());
}

std::unique_ptr<SerialPort> MakeDevicePort(const std::string& device,
                                           std::optional<std::int32_t> speed) {
  return std::make_unique<PosixPort>(device, speed);
}

std::string DeviceOfNumber(std::int32_t number) {
  return "/dev/ttyS" + std::to_string(number - 1);
}

}  // namespace kestra
