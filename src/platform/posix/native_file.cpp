#include "platform/posix/native_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace kestra {

std::string NativePath(std::string_view file) {
  std::string path(file);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

FileDescriptor OpenFile(const std::string& path, int flags) {
  constexpr mode_t kReadableByAll = 0666;  // less what the process masks
  for (;;) {
    const int fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, kReadableByAll);
    if (fd >= 0 || errno != EINTR) return OffStandardStreams(FileDescriptor(fd));
  }
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace kestra
