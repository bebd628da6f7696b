#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

  // Gives a file of at least `limit` bytes the name that has ".1" behind it, over what had that name; a
  // smaller one, and one that is not there, stays. Throws Failure when that cannot be done.
  virtual void SetAside(std::string_view file, std::uint64_t limit) = 0;
};

// The number of the failure of a file that another program has for itself.
constexpr std::int32_t kFileInUse = 55;

// A file for one program alone. When a call returns, what it did is on the disk and outlives the power. Whatever
// cannot be done throws Failure; the file is then as it was, but that part of the bytes of Append may stand at
// its end.
class JournalFile {
 public:
  JournalFile() = default;
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;
  virtual ~JournalFile() = default;

  // Takes the file, an empty one when it is missing, until Close. The host may change its directory then. Failure
  // kFileInUse while another program has it.
  virtual void Open(std::string_view file) = 0;
  virtual void Close() noexcept = 0;
  [[nodiscard]] virtual bool IsOpen() const noexcept = 0;

  virtual std::string Read() = 0;
  virtual void Append(std::string_view bytes) = 0;
  virtual void Truncate(std::size_t length) = 0;

  // Puts bytes in the place of as many that the file has: a full disk has room for that.
  virtual void Overwrite(std::size_t at, std::string_view bytes) = 0;

  // The file gets its name with the suffix behind it, and an empty one takes its place.
  virtual void BeginAnew(std::string_view suffix) = 0;

  // The suffixes of the files beside it that are called like it with something behind it, and an end to one.
  virtual std::vector<std::string> Kept() = 0;
  virtual void DeleteKept(std::string_view suffix) = 0;
};

}  // namespace kestra
