#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <utility>

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

}  // namespace kestra
