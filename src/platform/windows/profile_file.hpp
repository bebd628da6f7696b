#pragma once

#include <string>
#include <string_view>

#include "platform/seam/profile_file.hpp"

namespace kestra {

class WindowsProfile : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;
};

}  // namespace kestra
