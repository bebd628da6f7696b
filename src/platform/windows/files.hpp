#pragma once

#include <string>
#include <string_view>

#include "platform/seam/files.hpp"

namespace kestra {

class WindowsProfile : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;
};

class WindowsLog : public LogFile {
 public:
  void Append(std::string_view file, std::string_view bytes) override;
};

}  // namespace kestra
