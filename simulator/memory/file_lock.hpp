#pragma once

#include <memory>
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
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace impresora
