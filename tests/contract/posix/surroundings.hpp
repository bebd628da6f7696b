#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace kestra {

// An environment variable for one test; null takes it away.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    Set(value);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const {
    value != nullptr ? ::setenv(name_, value, 1) : ::unsetenv(name_);
    ::tzset();
  }

  const char* name_;
  std::optional<std::string> before_;
};

// Runs it in a process of its own; what became of that: 0, or what its wait told.
template <typename Action>
int InChild(Action action) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(action() ? 0 : 1);
  int status = -1;
  ::waitpid(child, &status, 0);
  return status;
}

// Takes root's privileges away while it lives: root may open and write everything. The folder is open to all.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::string& folder = ".") : before_(::geteuid()) {
    constexpr uid_t kNobody = 65534;
    EXPECT_EQ(::chmod(folder.c_str(), 0755), 0);
    EXPECT_TRUE(before_ != 0 || ::seteuid(kNobody) == 0);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    if (::seteuid(before_) != 0) std::abort();
  }

 private:
  uid_t before_;
};

}  // namespace kestra
