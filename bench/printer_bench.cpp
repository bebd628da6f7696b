// Measures the virtual printer: how soon it is there, how fast it answers, and what it keeps of ten
// thousand documents. The path of the program is the argument.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "line/session.hpp"
#include "packet.hpp"
#include "wire/control_bytes.hpp"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using impresora::kAck;
using impresora::kEtx;
using impresora::kFs;

constexpr int kStarts = 20;
constexpr int kAnswers = 20'000;
constexpr int kDocuments = 10'000;

double MillisecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double Middle(std::vector<double> values, double share) {
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(static_cast<double>(values.size() - 1) * share)];
}

std::string Body(std::initializer_list<std::string_view> parts) {
  std::string body;
  for (const std::string_view part : parts) {
    if (!body.empty()) body += kFs;
    body += part;
  }
  return body;
}

const std::array<std::string, 3> kTicket{
    Body({"@", "C"}), Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}),
    Body({"E", "T"})};

// Frames with numbers as a host gives them, no two in a row the same.
std::string NextFrame(const std::string& body) {
  static std::uint8_t sequence = 32;
  sequence = sequence >= 70 ? std::uint8_t{32} : static_cast<std::uint8_t>(sequence + 1);
  return impresora::Frame(sequence, body);
}

bool Whole(std::string_view answer) {
  const std::size_t end = answer.find(kEtx);
  return end != std::string_view::npos && answer.size() >= end + 5;
}

// The program on a pseudo-terminal, with its paper thrown away.
class Program {
 public:
  Program(const char* program, const std::vector<std::string>& more) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    std::vector<std::string> arguments{program, "--papel", "/dev/null"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    process_ = fork();
    if (process_ == 0) Become(arguments, ends[1]);
    close(ends[1]);
    std::string line;
    for (char byte = 0; read(ends[0], &byte, 1) == 1 && byte != '\n';) line += byte;
    close(ends[0]);
    if (line.size() < 9) throw std::runtime_error("the printer did not start");
    port_ = open(line.substr(8).c_str(), O_RDWR | O_NOCTTY);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    close(port_);
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }

  void Exchange(const std::string& body) const {
    const std::string frame = NextFrame(body);
    if (write(port_, frame.data(), frame.size()) < 0) throw std::runtime_error("no line");
    std::string answer;
    pollfd wait{port_, POLLIN, 0};
    while (!Whole(answer)) {
      std::array<char, 256> buffer{};
      if (poll(&wait, 1, 5000) != 1) throw std::runtime_error("no answer");
      const ssize_t count = read(port_, buffer.data(), buffer.size());
      if (count > 0) answer.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (write(port_, &kAck, 1) != 1) throw std::runtime_error("no line");
  }
  void Sell(int documents) const {
    for (int i = 0; i < documents; ++i) {
      for (const std::string& body : kTicket) Exchange(body);
    }
  }
  long ResidentKilobytes() const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.compare(0, 6, "VmRSS:") == 0) return std::stol(line.substr(6));
    }
    return 0;
  }

 private:
  [[noreturn]] static void Become(std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }

  pid_t process_ = -1;
  int port_ = -1;
};

void Start(const char* program) {
  std::vector<double> times;
  for (int i = 0; i < kStarts; ++i) {
    const auto begin = Clock::now();
    const Program started(program, {});
    times.push_back(MillisecondsSince(begin));
  }
  std::printf(
      "start                 %8.1f ms median, %.1f ms worst        (wanted: under 200 ms)\n",
      Middle(times, 0.5), Middle(times, 1));
}

void AnswersOverTheLine(const char* program) {
  const Program printer(program, {});
  std::vector<double> times;
  const auto begin = Clock::now();
  for (int i = 0; i < kAnswers; ++i) {
    const auto sent = Clock::now();
    printer.Exchange("Y");
    times.push_back(MillisecondsSince(sent));
  }
  std::printf(
      "answer over the line  %8.3f ms median, %.3f ms of 99 in 100 (wanted: under 1 ms), "
      "%.0f a second\n",
      Middle(times, 0.5), Middle(times, 0.99), kAnswers / (MillisecondsSince(begin) / 1000));
}

class StoppedClock : public impresora::WallClock {
 public:
  std::int64_t LocalSeconds() override { return 1'795'257'000; }
};

void AnswersInProcess() {
  StoppedClock clock;
  impresora::Session session({}, clock);
  impresora::Micros now{0};
  const auto begin = Clock::now();
  for (int i = 0; i < kAnswers; ++i) {
    session.Receive(NextFrame(kTicket.at(static_cast<std::size_t>(i) % kTicket.size())), now);
    if (!Whole(session.Advance(now).bytes)) throw std::runtime_error("no answer in process");
    now += impresora::Micros(10);
  }
  std::printf("answer in process     %8.4f ms mean of a ticket's commands\n",
              MillisecondsSince(begin) / kAnswers);
}

void Documents(const char* program, const char* what, const std::vector<std::string>& options) {
  const Program printer(program, options);
  printer.Sell(1000);  // buffers have their size by then
  const long before = printer.ResidentKilobytes();
  const auto begin = Clock::now();
  printer.Sell(kDocuments);
  const double took = MillisecondsSince(begin);
  std::printf("%-21s %8ld kB before, %ld kB after %d documents (%.3f ms each)\n", what, before,
              printer.ResidentKilobytes(), kDocuments, took / kDocuments);
}

void Run(const char* program) {
  Start(program);
  AnswersInProcess();
  AnswersOverTheLine(program);
  Documents(program, "memory", {});
  std::string folder = (fs::temp_directory_path() / "kestra-bench-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no folder");
  Documents(program, "memory, with a file", {"--memoria", folder + "/memoria"});
  fs::remove_all(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "Usage: kestra_printer_bench PATH-OF-impresora-virtual\n");
    return 2;
  }
  try {
    Run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The bench cannot go on: %s\n", error.what());
    return 1;
  }
}
