#include "station.hpp"

#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <limits>
#include <system_error>

#include "exchange_text.hpp"

namespace impresora {
namespace {

constexpr Micros kQuietTime = std::chrono::seconds(1);

Micros Now() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<Micros>(since);
}

// The signals that end the program arrive as bytes to read, in turn with everything else.
Descriptor CatchSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, number);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signal(SIGPIPE, SIG_IGN);
  Descriptor fd(signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!fd.valid()) throw std::system_error(errno, std::generic_category(), "signalfd");
  return fd;
}

LineSettings LineSettingsOf(const Options& options) {
  LineSettings settings;
  settings.baud = options.baud;
  settings.keep_exchanges = !options.trace.empty();
  return settings;
}

// The wait in poll's whole milliseconds, never shorter than asked.
int ToTimeout(Micros wait) {
  const auto whole = std::chrono::ceil<std::chrono::milliseconds>(std::max(wait, Micros{0}));
  constexpr std::int64_t kLongest = std::numeric_limits<int>::max();
  return static_cast<int>(std::min<std::int64_t>(whole.count(), kLongest));
}

}  // namespace

std::int64_t Station::SystemClock::LocalSeconds() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return std::int64_t{now} + local.tm_gmtoff;
}

Station::Station(const Options& options)
    : wanted_documents_(options.documents),
      signals_(CatchSignals()),
      printer_(options.settings),
      line_(printer_, clock_, LineSettingsOf(options)),
      paper_(options.paper, false),
      trace_(options.trace, true) {
  printer_.faults() = options.faults;
  if (!options.link.empty()) link_.emplace(options.link, terminal_.path());
  WatchForClosing();
  std::printf("Puerto: %s\n", terminal_.path().c_str());
  std::fflush(stdout);
}

// A host that was killed leaves its exclusive use of the port behind; that somebody closed the port
// is the sign to look after it.
void Station::WatchForClosing() {
  watch_ = Descriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
  if (!watch_.valid()) return;
  inotify_add_watch(watch_.get(), terminal_.path().c_str(), IN_CLOSE);
}

void Station::DrainWatch() {
  alignas(inotify_event) std::array<char, 4096> events{};
  if (read(watch_.get(), events.data(), events.size()) > 0) quiet_at_ = Now() + kQuietTime;
}

void Station::Run() {
  while (!Finished() && Wait()) Serve();
  Record();
}

std::optional<Micros> Station::NextWake() const {
  const auto due = line_.NextDue();
  if (due && quiet_at_) return std::min(*due, *quiet_at_);
  return due ? due : quiet_at_;
}

// False when a signal asks to end.
bool Station::Wait() {
  std::array<pollfd, 3> fds{
      {{terminal_.fd(), POLLIN, 0}, {signals_.get(), POLLIN, 0}, {watch_.get(), POLLIN, 0}}};
  const auto wake = NextWake();
  const int timeout = wake ? ToTimeout(*wake - Now()) : -1;
  if (poll(fds.data(), fds.size(), timeout) < 0) return errno == EINTR;
  if (fds[1].revents != 0) return false;
  if (fds[2].revents != 0) DrainWatch();
  if (fds[0].revents != 0) terminal_.Read(received_);
  return true;
}

void Station::Serve() {
  const Micros now = Now();
  if (!received_.empty()) {
    line_.Receive(received_, now);
    received_.clear();
    quiet_at_ = now + kQuietTime;
  }
  const std::string leaving = line_.Advance(now);
  if (!leaving.empty()) terminal_.Write(leaving);
  Record();
  if (quiet_at_ && *quiet_at_ <= now) {
    terminal_.AllowEveryone();
    quiet_at_.reset();
  }
}

// Paper and trace come after the answer has gone out, so that the host does not wait for them.
void Station::Record() {
  const std::vector<std::string> printed = printer_.TakePaper();
  for (const std::string& line : printed) paper_.Line(line);
  if (!printed.empty() && printer_.stage() == Stage::kIdle) paper_.Flush();
  for (const Exchange& exchange : line_.TakeExchanges()) trace_.Line(Describe(exchange));
}

bool Station::Finished() const {
  if (wanted_documents_ <= 0 || !line_.acknowledged()) return false;
  return printer_.documents_closed() >= static_cast<unsigned>(wanted_documents_);
}

}  // namespace impresora
