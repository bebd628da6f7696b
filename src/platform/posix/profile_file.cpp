#include "platform/posix/profile_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>

#include "platform/posix/native_file.hpp"
#include "platform/shared/ascii_case.hpp"
#include "platform/shared/profile_text.hpp"

namespace kestra {
namespace {

constexpr off_t kLargestProfile = off_t{1} << 20;

// The file of the same directory whose name differs in case alone; of several the first by name.
// Empty when there is none.
std::string NameInOtherCase(const std::string& path) {
  namespace fs = std::filesystem;
  const fs::path wanted(path);
  std::string found;
  std::error_code error;
  fs::directory_iterator entry(wanted.parent_path(), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string& candidate = entry->path().native();
    if (!EqualWithoutCase(candidate, path)) continue;
    if (found.empty() || candidate < found) found = candidate;
  }
  return found;
}

// Opened without blocking, so that a pipe of that name does not stop the host.
FileDescriptor OpenProfile(const std::string& path) {
  FileDescriptor fd = OpenFile(path, O_RDONLY | O_NONBLOCK);
  if (fd || errno != ENOENT) return fd;
  const std::string other = NameInOtherCase(path);
  return other.empty() ? FileDescriptor() : OpenFile(other, O_RDONLY | O_NONBLOCK);
}

std::string Contents(const FileDescriptor& fd) {
  struct stat about = {};
  if (!fd || ::fstat(fd.Get(), &about) != 0) return {};
  if (!S_ISREG(about.st_mode) || about.st_size > kLargestProfile) return {};
  std::string text(static_cast<std::size_t>(about.st_size), '\0');
  std::size_t filled = 0;
  while (filled < text.size()) {
    const ssize_t count = ::read(fd.Get(), text.data() + filled, text.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

}  // namespace

std::string PosixProfile::Read(std::string_view section, std::string_view key,
                               std::string_view file) {
  return FindInProfile(Contents(OpenProfile(NativePath(file))), section, key);
}

}  // namespace kestra
