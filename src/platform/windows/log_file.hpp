#pragma once

#include <string_view>

#include "platform/seam/log_file.hpp"

namespace kestra {

class WindowsLog : public LogFile {
 public:
  void Append(std::string_view file, std::string_view bytes) override;
};

}  // namespace kestra
