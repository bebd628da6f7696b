#pragma once

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

  // An interrupted close has closed all the same: it is never tried again.
  void Close() {
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
  }

 private:
  int fd_ = -1;
};

}  // namespace kestra
