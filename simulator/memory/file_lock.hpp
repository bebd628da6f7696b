#pragma once

#include <string>

namespace impresora {

// Keeps a second printer off the file for as long as this object lives, however the process ends.
class FileLock {
 public:
  // Makes the file when there is none. Throws MemoryFailure when it cannot be had.
  explicit FileLock(const std::string& path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  int fd_;
};

}  // namespace impresora
