#include "service/process.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/random.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace puerta {
namespace {

class Child : public Process {
 public:
  explicit Child(pid_t pid) : pid_(pid) {}
  // Not waited for, it would stay in the table of processes: what still runs is let go.
  ~Child() override { Child::HasEnded(); }

  bool HasEnded() override {
    if (!ended_) ended_ = ::waitpid(pid_, &status_, WNOHANG) == pid_;
    return ended_;
  }

  std::string HowItEnded() const override {
    if (WIFSIGNALED(status_)) return "señal " + std::to_string(WTERMSIG(status_));
    return "código " + std::to_string(WEXITSTATUS(status_));
  }

  void Kill() override {
    if (!HasEnded()) ::kill(pid_, SIGKILL);
  }

 private:
  pid_t pid_;
  int status_ = 0;
  bool ended_ = false;
};

std::vector<char*> Pointers(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (auto& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> Environment(const ProcessPlan& plan) {
  std::vector<std::string> all;
  for (char** row = environ; *row != nullptr; ++row) all.emplace_back(*row);
  all.insert(all.end(), plan.environment.begin(), plan.environment.end());
  return all;
}

// Between fork and exec nothing is called that could wait for another thread. Our sockets and files stay ours.
[[noreturn]] void Become(const ProcessPlan& plan, char* const* words, char* const* environment) {
  ::setpgid(0, 0);
  ::close_range(3, ~0U, 0);
  const int nothing = ::open("/dev/null", O_RDWR);
  if (nothing >= 0) ::dup2(nothing, 0);
  if (::chdir(plan.folder.c_str()) == 0) ::execve(plan.program.c_str(), words, environment);
  ::_exit(126);
}

}  // namespace

std::unique_ptr<Process> StartProcess(const ProcessPlan& plan) {
  std::vector<std::string> words{plan.program};
  words.insert(words.end(), plan.words.begin(), plan.words.end());
  auto environment = Environment(plan);
  const auto word_pointers = Pointers(words);
  const auto environment_pointers = Pointers(environment);
  const pid_t pid = ::fork();
  if (pid < 0) throw std::runtime_error(std::strerror(errno));
  if (pid == 0) Become(plan, word_pointers.data(), environment_pointers.data());
  return std::make_unique<Child>(pid);
}

std::string OwnProgram() {
  return std::filesystem::read_symlink("/proc/self/exe").string();
}

std::string RandomDigits(int bytes) {
  std::string digits;
  for (int i = 0; i < bytes; ++i) {
    unsigned char byte = 0;
    if (::getrandom(&byte, 1, 0) != 1) throw std::runtime_error("no hay números al azar");
    digits += "0123456789abcdef"[byte >> 4];
    digits += "0123456789abcdef"[byte & 15];
  }
  return digits;
}

}  // namespace puerta
