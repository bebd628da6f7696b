#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "campaigns/torture/under_way.hpp"
#include "hostile/posix/call.hpp"
#include "hostile/posix/printer.hpp"
#include "hostile/posix/shop.hpp"
#include "kestra/kestra.h"
#include "programs/stories.hpp"

namespace kestra::hostile {
namespace {

using exports::Nature;

// Boxes around every frame and a log line for everything: all that the library can reach for.
constexpr const char* kTalkative = "MostrarComandos=2\r\nMostrarRespuestas=1\r\n";

// Each operation once; they all give what is wanted.
void WorkADay(const char* habit, bool succeeds) {
  const torture::UnderWay mark(habit, "a day's work");
  Expect((SaneCall(Find("EP_Init")) == 1) == succeeds, std::string(habit) + ": the start");
  for (const Export& row : exports::Exports()) {
    const bool operates = row.nature == Nature::kOperation || row.nature == Nature::kFixed;
    if (!operates) continue;
    const std::int32_t result = SaneCall(row);
    const std::int32_t wanted = succeeds ? 0 : row.failed;
    Expect(result == wanted,
           std::string(habit).append(": ").append(row.name) + " gave " + std::to_string(result));
  }
  Find("EP_Kill").call({});
}

// Those streams are closed; they come back, so that a failure can be told.
class ClosedStreams {
 public:
  explicit ClosedStreams(const std::vector<int>& streams) {
    for (const int fd : streams) {
      kept_.push_back({fd, ::fcntl(fd, F_DUPFD_CLOEXEC, 100)});
      ::close(fd);
    }
  }
  ClosedStreams(const ClosedStreams&) = delete;
  ClosedStreams& operator=(const ClosedStreams&) = delete;
  ~ClosedStreams() {
    for (const auto& [fd, copy] : kept_) {
      ::dup2(copy, fd);
      ::close(copy);
    }
  }

 private:
  std::vector<std::pair<int, int>> kept_;
};

void Heard(int /*signal_number*/) {}

// Rings at the thread that made it, again and again.
class Bell {
 public:
  Bell() : listener_(::pthread_self()), thread_([this] { Ring(); }) {}
  Bell(const Bell&) = delete;
  Bell& operator=(const Bell&) = delete;
  ~Bell() {
    over_ = true;
    thread_.join();
  }

 private:
  void Ring() const {
    while (!over_) {
      ::pthread_kill(listener_, SIGUSR1);
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
  }

  pthread_t listener_;
  std::atomic<bool> over_{false};
  std::thread thread_;
};

void* WorkOnThread(void* /*unused*/) {
  WorkADay("a small stack", true);
  return nullptr;
}

// A host's stray prints, from inside of a box: while the port is open they must not reach the printer.
std::int32_t KESTRA_CALL PrintFromWithin(void* context, const char* text, const char* /*title*/,
                                         std::int32_t style) {
  const std::string note = std::string("box: ").append(text).append("\n");
  for (const int fd : *static_cast<std::vector<int>*>(context)) {
    if (::write(fd, note.data(), note.size()) < 0) continue;  // as it should be
  }
  return style == 0 ? 1 : 6;
}

void WorkWithout(std::vector<int> streams, Line line, bool prints) {
  const KestraOperador printing{sizeof printing, &streams, PrintFromWithin, nullptr, nullptr};
  Printer printer(line);
  const Shop shop(printer.Device(), kTalkative);
  Kestra_DefinirOperador(prints ? &printing : nullptr);
  {
    const ClosedStreams closed(streams);
    WorkADay("standard streams closed", true);
  }
  Kestra_DefinirOperador(nullptr);
  std::string what = line == Line::kTerminal ? "a terminal, without" : "a network, without";
  for (const int fd : streams) what += " " + std::to_string(fd);
  what += prints ? ", prints from within" : ", nobody there";
  Expect(printer.Strays() == 0, what + ": the printer got what was meant for a standard stream");
  Expect(printer.Frames() > 20, what + ": the printer got too little");
}

}  // namespace

// A host without standard streams has some of the descriptors 0 to 2 free. What is written to them, by
// itself or by the library's notes to nobody, must not go down the printer's line.
STORY(standard_streams_closed) {
  const std::vector<std::vector<int>> streams{{0}, {1}, {2}, {0, 1}, {0, 2}, {1, 2}, {0, 1, 2}};
  for (const auto& closed : streams) {
    for (const Line line : {Line::kTerminal, Line::kNetwork}) {
      WorkWithout(closed, line, true);
      WorkWithout(closed, line, false);
    }
  }
}

STORY(signals_all_the_time) {
  Printer printer;
  const Shop shop(printer.Device(), kTalkative);
  struct sigaction action = {};
  action.sa_handler = Heard;  // without SA_RESTART: every wait is cut short
  ::sigaction(SIGUSR1, &action, nullptr);
  const Bell bell;
  WorkADay("signals all the time", true);
  Expect(printer.Strays() == 0, "bytes that are no frames came to the printer");
}

STORY(small_stacks) {
  constexpr std::size_t size = std::size_t{128} * 1024;
  Printer printer;
  const Shop shop(printer.Device(), kTalkative);
  pthread_attr_t attributes = {};
  ::pthread_attr_init(&attributes);
  ::pthread_attr_setstacksize(&attributes, size);
  pthread_t thread = {};
  Expect(::pthread_create(&thread, &attributes, WorkOnThread, nullptr) == 0, "no thread");
  ::pthread_join(thread, nullptr);
}

STORY(no_descriptors_left) {
  Printer printer;
  const Shop shop(printer.Device(), kTalkative);
  Expect(SaneCall(Find("EP_Init")) == 1, "the start");
  rlimit before = {};
  ::getrlimit(RLIMIT_NOFILE, &before);
  const rlimit none = {.rlim_cur = 3, .rlim_max = before.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  const std::int32_t without = SaneCall(Find("EP_CortaPapel"));
  ::setrlimit(RLIMIT_NOFILE, &before);
  Expect(without == 1, "a command went out without a descriptor");
  Expect(SaneCall(Find("EP_CortaPapel")) == 0, "the next call fails");
  Find("EP_Kill").call({});
}

STORY(no_current_directory) {
  Printer printer;
  const Shop shop(printer.Device(), kTalkative);
  std::filesystem::remove_all(shop.Folder());
  // Without settings there is no port to be had.
  WorkADay("no current directory", false);
}

}  // namespace kestra::hostile
