#include "campaigns/torture/under_way.hpp"

#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>

namespace kestra::torture {
namespace {

// Of processor time no run takes a tenth of it; one that waits for ever takes none.
constexpr unsigned kSecondsForARun = 60;
constexpr unsigned kSecondsOnABusyMachine = 20 * kSecondsForARun;

std::array<char, 300> under_way{};

void Keep(const std::string& text) {
  const std::size_t count = std::min(text.size(), under_way.size() - 1);
  std::copy_n(text.begin(), count, under_way.begin());
  under_way[count] = '\0';
}

void Limit(unsigned seconds) {
  const itimerval limit{.it_interval = {}, .it_value = {.tv_sec = seconds, .tv_usec = 0}};
  (void)::setitimer(ITIMER_PROF, &limit, nullptr);
}

void Tell(int signal_number) {
  const auto* const end = std::find(under_way.begin(), under_way.end(), '\0');
  const auto count = static_cast<std::size_t>(end - under_way.begin());
  if (::write(STDERR_FILENO, under_way.data(), count) < 0) ::_exit(2);
  (void)std::signal(signal_number, SIG_DFL);
  (void)std::raise(signal_number);
}

}  // namespace

UnderWay::UnderWay(const std::string& played, const std::string& strike) {
  Keep("it ended badly in " + played + ", " + strike + "\n");
  Limit(kSecondsForARun);
  (void)::alarm(kSecondsOnABusyMachine);
}

UnderWay::~UnderWay() {
  (void)::alarm(0);
  Limit(0);
}

void UnderWay::WatchForTheEnd() {
  for (const int number : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGALRM, SIGPROF}) {
    (void)std::signal(number, Tell);
  }
}

}  // namespace kestra::torture
