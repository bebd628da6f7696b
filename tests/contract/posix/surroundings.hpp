#pragma once

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

// Takes root's privileges away while it lives: root may open and write everything.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(::geteuid()) {
    constexpr uid_t kNobody = 65534;
    lowered_ = before_ != 0 || ::seteuid(kNobody) == 0;
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    if (::seteuid(before_) != 0) std::abort();
  }

  explicit operator bool() const { return lowered_; }

 private:
  uid_t before_;
  bool lowered_ = false;
};

}  // namespace kestra
