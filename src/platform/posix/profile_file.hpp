#pragma once

#include <string>
#include <string_view>

#include "platform/seam/profile_file.hpp"

namespace kestra {

// Reads the file anew for each key, so that what is read is what the file holds now. A file that is
// not there under its exact name is looked for without regard to case; one that cannot be read, or
// is too large to be a profile, is empty.
class PosixProfile : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;
};

}  // namespace kestra
