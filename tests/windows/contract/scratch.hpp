#pragma once

#include <string>

namespace kestra {

// A directory for one test, which becomes the current one.
class ScratchDirectory {
 public:
  ScratchDirectory();
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  ~ScratchDirectory();

  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string before_;
  std::string path_;
};

void WriteFileText(const std::string& name, const std::string& text);
std::string ReadFileText(const std::string& name);

}  // namespace kestra
