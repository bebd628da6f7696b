#pragma once

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/seam/files.hpp"

namespace kestra {

// A descriptor that closes itself.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int fd) : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    other.Close();
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { Close(); }

  [[nodiscard]] int Get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }

  // From here on it is the caller's to close.
  int Release() { return std::exchange(fd_, -1); }

  // An interrupted close has closed all the same: it is never tried again.
  void Close() {
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
  }

 private:
  int fd_ = -1;
};

// The same file by a number that is no standard stream's. A host may have closed its own: whatever it,
// or a note to the operator, still writes there must not reach the printer.
inline FileDescriptor OffStandardStreams(FileDescriptor file) {
  constexpr int kFirstOther = STDERR_FILENO + 1;
  if (!file || file.Get() >= kFirstOther) return file;
  return FileDescriptor(::fcntl(file.Get(), F_DUPFD_CLOEXEC, kFirstOther));
}

// Holds back, while it lives, the signals that a write sends for a pipe without a reader or a file that may not
// grow, and takes those that came: each of them would end the host. One that was pending before stays for the
// host.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals();

 private:
  sigset_t pending_before_ = {};
  sigset_t mask_before_ = {};
};

// ".\fiscal.log" as this system writes it: "./fiscal.log".
std::string NativePath(std::string_view file);

// open() that a signal does not fail; the descriptor does not reach the programs that the host
// starts, is no standard stream's, and a terminal does not become the host's own.
FileDescriptor OpenFile(const std::string& path, int flags);

// Writes all bytes to a descriptor; false, with errno set, when that cannot be done.
bool WriteAll(int fd, std::string_view bytes);

// Throws the failure of errno unless `done`.
void RequireOfFile(bool done);

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
  void SetAside(std::string_view file, std::uint64_t limit) override;
};

}  // namespace kestra
