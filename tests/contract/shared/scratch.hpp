#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kestra {

// A directory for one test, which becomes the current one.
class ScratchDirectory {
 public:
  ScratchDirectory() : before_(std::filesystem::current_path()) {
    auto number = std::chrono::steady_clock::now().time_since_epoch().count();
    do {
      path_ = std::filesystem::temp_directory_path() / ("kestra." + std::to_string(number++));
    } while (!std::filesystem::create_directory(path_));
    std::filesystem::current_path(path_);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(path_, ignored);
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

}  // namespace kestra
