#pragma once

#include <string>
#include <string_view>

#include "platform/posix/file_descriptor.hpp"
#include "platform/seam/log_file.hpp"
#include "platform/seam/profile_file.hpp"

namespace kestra {

// ".\fiscal.log" as this system writes it: "./fiscal.log".
std::string NativePath(std::string_view file);

// open() that a signal does not fail; the descriptor does not reach the programs that the host
// starts, is no standard stream's, and a terminal does not become the host's own.
FileDescriptor OpenFile(const std::string& path, int flags);

// Writes all bytes to a descriptor; false, with errno set, when that cannot be done.
bool WriteAll(int fd, std::string_view bytes);

// Reads the file anew for each key, so that what is read is what the file holds now. A file that is
// not there under its exact name is looked for without regard to case; one that cannot be read, or
// is too large to be a profile, is empty.
class PosixProfile : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;
};

class PosixLog : public LogFile {
 public:
  void Append(std::string_view file, std::string_view bytes) override;
};

}  // namespace kestra
