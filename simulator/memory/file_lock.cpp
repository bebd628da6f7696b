#include "memory/file_lock.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "memory/store.hpp"

namespace impresora {
namespace {

std::string WordsOf(int error) {
  switch (error) {
    case ENOENT:
      return "la carpeta no existe";
    case EACCES:
    case EPERM:
      return "no hay permiso para escribir";
    case EROFS:
      return "el disco es de solo lectura";
    case EISDIR:
      return "es una carpeta";
    case ENOSPC:
      return "no queda lugar en el disco";
    default:
      return std::generic_category().message(error);
  }
}

}  // namespace

// Opened to write, though it only locks, so that a file that cannot be written is told at once.
FileLock::FileLock(const std::string& path)
    : fd_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
  if (fd_ < 0) throw MemoryFailure(WordsOf(errno));
  struct stat about {};
  if (fstat(fd_, &about) != 0 || !S_ISREG(about.st_mode)) {
    close(fd_);
    throw MemoryFailure("no es un archivo");
  }
  if (flock(fd_, LOCK_EX | LOCK_NB) == 0) return;
  close(fd_);
  throw MemoryFailure("la está usando otra impresora virtual");
}

FileLock::~FileLock() {
  close(fd_);
}

}  // namespace impresora
