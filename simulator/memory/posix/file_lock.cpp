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

struct FileLock::Handle {
  explicit Handle(int opened) : fd(opened) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (fd >= 0) close(fd);
  }
  int fd;
};

// Opened to write, though it only locks, so that a file that cannot be written is told at once.
FileLock::FileLock(const std::string& path)
    : handle_(std::make_unique<Handle>(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644))) {
  const int fd = handle_->fd;
  if (fd < 0) throw MemoryFailure(WordsOf(errno));
  struct stat about {};
  if (fstat(fd, &about) != 0 || !S_ISREG(about.st_mode)) throw MemoryFailure("no es un archivo");
  if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
    throw MemoryFailure("la está usando otra impresora virtual");
  }
}

FileLock::~FileLock() = default;

}  // namespace impresora
