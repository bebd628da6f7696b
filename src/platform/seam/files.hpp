#pragma once

#include <string>
#include <string_view>

namespace kestra {

// The longest value that the profile reader returns.
constexpr std::size_t kLongestProfileValue = 254;

class ProfileFile {
 public:
  ProfileFile() = default;
  ProfileFile(const ProfileFile&) = delete;
  ProfileFile& operator=(const ProfileFile&) = delete;
  virtual ~ProfileFile() = default;

  // Text of a key, at most kLongestProfileValue characters; empty when the file, the section or the
  // key is not there. `file` is written ".\Fiscal.ini" on every platform.
  virtual std::string Read(std::string_view section, std::string_view key,
                           std::string_view file) = 0;
};

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
