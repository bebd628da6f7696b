#pragma once

#include <string_view>

namespace kestra {

class LogFile {
 public:
  LogFile() = default;
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  virtual ~LogFile() = default;

  // Opens the file for appending (created when missing), writes the bytes, closes it. Throws Failure
  // when that cannot be done. `file` is written ".\fiscal.log" on every platform.
  virtual void Append(std::string_view file, std::string_view bytes) = 0;
};

}  // namespace kestra
