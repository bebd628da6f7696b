#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/seam/files.hpp"

namespace kestra {

// Throws the failure of the thread's last error unless `done`.
void RequireOfFile(bool done);

class WindowsProfile : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;
};

class WindowsLog : public LogFile {
 public:
  void Append(std::string_view file, std::string_view bytes) override;
  void SetAside(std::string_view file, std::uint64_t limit) override;
};

}  // namespace kestra
