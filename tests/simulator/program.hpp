#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "folder.hpp"
#include "host.hpp"

namespace impresora::prueba {

namespace fs = std::filesystem;

// Longer than any machine needs; only a fault makes a test wait this long.
inline constexpr int kPatience = 20'000;

inline std::string ReadUntil(int fd, const std::function<bool(const std::string&)>& enough) {
  std::string text;
  pollfd wait{fd, POLLIN, 0};
  while (!enough(text) && poll(&wait, 1, kPatience) > 0) {
    std::array<char, 512> buffer{};
    const ssize_t count = read(fd, buffer.data(), buffer.size());
    if (count <= 0) break;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

// The program running, with its two outputs in one pipe.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    std::array<int, 2> pipe_ends{};
    if (pipe(pipe_ends.data()) != 0) return;
    arguments.insert(arguments.begin(), IMPRESORA_VIRTUAL);
    pid_ = fork();
    if (pid_ == 0) Become(arguments, pipe_ends[1]);
    close(pipe_ends[1]);
    output_ = pipe_ends[0];
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    if (pid_ > 0) kill(pid_, SIGKILL), waitpid(pid_, nullptr, 0);
    close(output_);
  }

  // The next line of what it says, with its end.
  std::string Line() {
    while (said_.find('\n') == said_.npos) {
      const std::string more = ReadUntil(output_, [](const std::string& s) { return !s.empty(); });
      if (more.empty()) break;
      said_ += more;
    }
    std::string line = said_.substr(0, said_.find('\n') + 1);
    said_.erase(0, line.size());
    return line;
  }
  std::string Rest() {
    return std::exchange(said_, {}) + ReadUntil(output_, [](const std::string&) { return false; });
  }
  void Stop() const { kill(pid_, SIGTERM); }
  void Kill() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }
  int Wait() {
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  [[noreturn]] static void Become(const std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
      argv.push_back(const_cast<char*>(argument.data()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }

  pid_t pid_ = -1;
  int output_ = -1;
  std::string said_;
};

// A host at the other end of the line, which may be any descriptor.
class Port {
 public:
  explicit Port(const std::string& path) : fd_(open(path.c_str(), O_RDWR | O_NOCTTY)) {}
  explicit Port(int fd) : fd_(fd) {}
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;
  ~Port() { close(fd_); }

  std::string Exchange(std::uint8_t sequence, const std::string& body) {
    const std::string frame = Frame(sequence, body);
    EXPECT_EQ(write(fd_, frame.data(), frame.size()), static_cast<ssize_t>(frame.size()));
    std::string answer = ReadUntil(fd_, [](const std::string& text) {
      const std::size_t end = text.find(kEtx);
      return end != text.npos && text.size() >= end + 5;
    });
    EXPECT_EQ(write(fd_, &kAck, 1), 1);
    return answer;
  }
  int fd() const { return fd_; }

 private:
  int fd_;
};

// A connection to the port that a line "Puerto: tcp:127.0.0.1:N" tells.
inline int ConnectTo(const std::string& line) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1))));
  const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return fd;
  close(fd);
  return -1;
}

// A folder of its own for each test.
class ProgramTest : public testing::Test {
 protected:
  std::string In(const std::string& name) const { return folder_ / name; }

  Folder folder_;
};

}  // namespace impresora::prueba
