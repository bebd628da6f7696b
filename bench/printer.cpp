#include "printer.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <new>
#include <string_view>
#include <system_error>

#include "packet.hpp"

namespace kestra::bench {
namespace {

int Require(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

// Both ends of the line. The printer keeps the host's end open too: the line stays up when the host
// closes its own.
struct Line {
  int printer = -1;
  int host = -1;
};

Line OpenLine() {
  Line line;
  line.printer = Require(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
  Require(::grantpt(line.printer), "grantpt");
  Require(::unlockpt(line.printer), "unlockpt");
  line.host = Require(::open(::ptsname(line.printer), O_RDWR | O_NOCTTY | O_CLOEXEC), "open");
  termios raw = {};
  Require(::tcgetattr(line.host, &raw), "tcgetattr");
  ::cfmakeraw(&raw);
  Require(::tcsetattr(line.host, TCSANOW, &raw), "tcsetattr");
  return line;
}

Tally* SharedTally() {
  void* const shared =
      ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  return new (shared) Tally;
}

// The printer's side, in its own process.
class Station {
 public:
  Station(int fd, Manner manner, Tally& tally) : fd_(fd), manner_(manner), tally_(tally) {}

  void Serve();

 private:
  void Receive(std::string_view bytes);
  void Answer();
  void StayBusy();
  void Send(std::string_view bytes);
  void SendPaced(std::string_view bytes);

  int fd_;
  Manner manner_;
  Tally& tally_;
  FrameReader reader_;
  Moment received_until_ = 0;
};

void Station::Serve() {
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = ::read(fd_, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    Receive({buffer.data(), static_cast<std::size_t>(count)});
  }
}

// Bytes that come while others are still on the line queue up behind them.
void Station::Receive(std::string_view bytes) {
  const Moment pace = manner_ == Manner::kPaced ? kByteTime : 0;
  const Moment arrival = Now();
  tally_.bytes_received += bytes.size();
  for (const char byte : bytes) {
    received_until_ = std::max(arrival, received_until_) + pace;
    if (reader_.Take(byte)) Answer();
  }
  tally_.received_until = received_until_;
  tally_.acknowledged = reader_.Acknowledged();
}

void Station::Answer() {
  const std::string answer = ContentAnswer(reader_.Current());
  ++tally_.answers;
  if (manner_ == Manner::kBusy) StayBusy();
  manner_ == Manner::kPaced ? SendPaced(answer) : Send(answer);
}

void Station::StayBusy() {
  const Moment begin = Now();
  for (Moment passed = 0; passed < kBusyTime; passed += kSecond / 2) {
    SleepUntil(begin + passed);
    Send({&kDc2, 1});
  }
  SleepUntil(begin + kBusyTime);
}

void Station::Send(std::string_view bytes) {
  tally_.bytes_sent += bytes.size();
  if (::write(fd_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) ::_exit(1);
}

// Each byte is there for the host once its last bit has crossed the line.
void Station::SendPaced(std::string_view bytes) {
  Moment there = received_until_;
  for (const char byte : bytes) {
    there += kByteTime;
    SleepUntil(there);
    Send({&byte, 1});
  }
}

[[noreturn]] void RunStation(const Line& line, Manner manner, Tally& tally, pid_t host) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::prctl(PR_SET_TIMERSLACK, 1UL);
  if (::getppid() != host) ::_exit(1);  // the host died before the first line above
  Station(line.printer, manner, tally).Serve();
  ::_exit(1);
}

}  // namespace

Printer::Printer(Manner manner) {
  const Line line = OpenLine();
  path_ = ::ptsname(line.printer);
  tally_ = SharedTally();
  const pid_t host = ::getpid();
  process_ = Require(::fork(), "fork");
  if (process_ == 0) RunStation(line, manner, *tally_, host);
  ::close(line.printer);
  ::close(line.host);
}

Printer::~Printer() {
  ::kill(process_, SIGKILL);
  while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
  }
  ::munmap(tally_, sizeof(Tally));
}

bool Printer::AllAcknowledged() const {
  for (const Moment limit = Now() + kSecond; Now() < limit; SleepUntil(Now() + kMillisecond)) {
    if (tally_->acknowledged == tally_->answers) return true;
  }
  return false;
}

}  // namespace kestra::bench
