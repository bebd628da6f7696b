#pragma once

#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace kestra {

// A directory for one test, which becomes the current one.
class ScratchDirectory {
 public:
  ScratchDirectory() : before_(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "kestra.XXXXXX").string();
    path_ = ::mkdtemp(name.data());
    std::filesystem::current_path(path_);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  ~ScratchDirectory() {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(path_);
  }

  [[nodiscard]] std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path before_;
  std::filesystem::path path_;
};

inline void WriteFile(const std::string& name, const std::string& text) {
  std::ofstream(name, std::ios::binary) << text;
}

inline std::string ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

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
